#include "base/huge_page_heap.h"

#include <cstdlib>
#include <string_view>

#if defined(__linux__) && defined(__GLIBC__)
#include <unistd.h>
#endif

namespace quillon {

namespace {
constexpr std::string_view kHugePages = "glibc.malloc.hugetlb";
}

std::optional<std::string> HugePageTunables(const char* tunables, const char* preload) {
    if (preload && *preload) return std::nullopt;
    const std::string_view current = tunables ? tunables : "";
    if (current.find(kHugePages) != std::string_view::npos) return std::nullopt;
    std::string wanted(current);
    if (!wanted.empty()) wanted += ':';
    wanted += kHugePages;
    wanted += "=1";
    return wanted;
}

void StartWithHugePageHeap(char** argv) {
#if defined(__linux__) && defined(__GLIBC__)
    const char* before = std::getenv("GLIBC_TUNABLES");
    const std::optional<std::string> wanted = HugePageTunables(before, std::getenv("LD_PRELOAD"));
    if (!wanted) return;
    const std::string kept = before ? before : "";
    setenv("GLIBC_TUNABLES", wanted->c_str(), 1);
    execv("/proc/self/exe", argv);
    if (before) // no new start: leave the environment as it was
        setenv("GLIBC_TUNABLES", kept.c_str(), 1);
    else
        unsetenv("GLIBC_TUNABLES");
#else
    (void)argv;
#endif
}

} // namespace quillon
