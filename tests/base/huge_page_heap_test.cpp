#include "base/huge_page_heap.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(HugePageTunables, AddsTheHeapSettingOnceAndKeepsTheUsersOwn) {
    struct Case {
        const char* why;
        const char* tunables;
        const char* preload;
        std::optional<std::string> wanted;
    };
    const Case cases[] = {
        {"nothing set", nullptr, nullptr, "glibc.malloc.hugetlb=1"},
        {"empty setting", "", "", "glibc.malloc.hugetlb=1"},
        {"other tunables stay, in front", "glibc.malloc.arena_max=2", nullptr,
         "glibc.malloc.arena_max=2:glibc.malloc.hugetlb=1"},
        {"the second start does not start again", "glibc.malloc.hugetlb=1", nullptr, std::nullopt},
        {"the user turned it off", "glibc.malloc.arena_max=2:glibc.malloc.hugetlb=0", nullptr, std::nullopt},
        {"a preloaded library owns the allocator", nullptr, "/usr/lib/vgpreload_memcheck.so", std::nullopt},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(HugePageTunables(c.tunables, c.preload), c.wanted);
    }
}

} // namespace
} // namespace quillon
