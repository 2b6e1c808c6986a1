// rng.h — model layer, demo data: the one random stream of the demo generator.
//
// Ranges are mapped by our own arithmetic rather than the standard distributions, which differ
// between library versions: same seed, same file, on every platform.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace quillon::demo {

class Rng {
public:
    explicit Rng(unsigned seed) : gen_(seed) {}

    // Uniform in [lo, hi], both ends included.
    std::int64_t Int(std::int64_t lo, std::int64_t hi) {
        const auto span = static_cast<std::uint64_t>(hi - lo + 1);
        const std::uint64_t draw = (static_cast<std::uint64_t>(gen_()) << 32) | gen_();
        return lo + static_cast<std::int64_t>(draw % span);
    }
    // Uniform in [0, 1).
    double Real() { return static_cast<double>(gen_()) / 4294967296.0; }
    bool Chance(double p) { return Real() < p; }
    // Index chosen by integer weights.
    int Weighted(const std::vector<int>& weights) {
        int total = 0;
        for (int w : weights) total += w;
        int draw = static_cast<int>(Int(0, total - 1));
        for (int i = 0; i < static_cast<int>(weights.size()); ++i) {
            if (draw < weights[i]) return i;
            draw -= weights[i];
        }
        return static_cast<int>(weights.size()) - 1;
    }
    template <class T> const T& Pick(const std::vector<T>& v) {
        return v[static_cast<std::size_t>(Int(0, static_cast<std::int64_t>(v.size()) - 1))];
    }

private:
    std::mt19937 gen_;
};

} // namespace quillon::demo
