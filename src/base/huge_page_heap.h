// huge_page_heap.h — a year of a large office fills hundreds of megabytes of fresh heap, and
// each 4 KiB page of it costs a fault when first touched. glibc can ask the kernel for
// transparent huge pages for its heap (512 times fewer faults), but reads that setting only when
// a process starts: the program starts itself once more with it, before doing anything else.
#pragma once

#include <optional>
#include <string>

namespace quillon {

// The GLIBC_TUNABLES to start again with, or nothing when the process should go on as it is:
// the setting is there already (set by the user, =0 included, or by the first start), or a
// preloaded library (a memory checker, say) stands between the program and its allocator.
std::optional<std::string> HugePageTunables(const char* tunables, const char* preload);

// Starts the program again with the setting when HugePageTunables asks for it; returns only
// when it does not, or when the new start fails (the program then goes on with the heap as is).
void StartWithHugePageHeap(char** argv);

} // namespace quillon
