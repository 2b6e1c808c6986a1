// bench_clock.h — the median, min and max of repeated timings, in milliseconds.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <vector>

namespace quillon::bench {

struct Spread {
    double median = 0, min = 0, max = 0;
};

inline Spread TimeRepeated(int times, const std::function<void()>& once) {
    std::vector<double> ms;
    for (int i = 0; i < times; ++i) {
        const auto start = std::chrono::steady_clock::now();
        once();
        ms.push_back(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }
    std::sort(ms.begin(), ms.end());
    return {ms[ms.size() / 2], ms.front(), ms.back()};
}

// One line the bench script reads: "name median min max".
inline void Report(const char* name, const Spread& s) {
    std::printf("%s %.3f %.3f %.3f\n", name, s.median, s.min, s.max);
}

} // namespace quillon::bench
