// print_job.h — controls layer: what a window hands to the platform to print: a grid and the
// lines that stand over it on every page. The page layout is worked out in the workbench and
// painted by the skin; headless, the request is only recorded.
#pragma once

#include <string>

namespace quillon {

class FlexGrid;

struct PrintJob {
    std::string title;     // the report's title, centred over the first rows of every page
    std::string subtitle;  // a date or criteria line under it; may be empty
    const FlexGrid* grid = nullptr;
};

} // namespace quillon
