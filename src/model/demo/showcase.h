// showcase.h — model layer, demo data: the drafts that come first in every demo database, so that
// even a small one holds each situation the reports treat on their own, and each detail report
// has full results for the departments and years a user would pick.
#pragma once

#include <vector>

#include "model/demo/scenario.h"

namespace quillon::demo {

struct ShowcaseEntry {
    Scenario scenario;
    int office; // position in kOffices
    int year;   // 0: any
};

std::vector<ShowcaseEntry> ShowcaseEntries();

} // namespace quillon::demo
