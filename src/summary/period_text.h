// period_text.h — summary layer: the 摘要 of an invoice line (months as yyyymm, separated by
// commas) as the detail list shows it: bracketed months, runs of consecutive months merged.
#pragma once

#include <string>
#include <vector>

namespace quillon {

// One run of months from a(i) on. i is moved to the last element the run used: to the upper
// bound when the run reached the end of the array, else to the element in front of the one that
// broke it; it stays where it was when a later element is no month at all.
std::string CompactPeriods(int& i, const std::vector<std::string>& a);

// The text of column 摘要: "[" + 摘要 + "]" without a comma; otherwise the runs from every element
// but the last, which is taken to be the empty rest after a closing comma.
std::string PeriodText(const std::string& summary);

} // namespace quillon
