#include "summary/period_text.h"

#include <optional>

#include "base/vb_number.h"
#include "base/vb_text.h"

namespace quillon {
namespace {

// The month that a numeric text names when written as "0000-00" (202401 is 2024-01), counted
// from year 0; nothing when that is no date.
std::optional<int> MonthNumber(const std::string& text) {
    if (!IsNumeric(text)) return std::nullopt;
    const double value = CDbl(text);
    if (value < 0) return std::nullopt;
    const std::string digits = Format(value, "0");
    if (digits.size() != 6) return std::nullopt;
    const int year = std::stoi(digits.substr(0, 4));
    const int month = std::stoi(digits.substr(4, 2));
    if (year < 100 || month < 1 || month > 12) return std::nullopt;
    return year * 12 + month - 1;
}

} // namespace

std::string CompactPeriods(int& i, const std::vector<std::string>& a) {
    const int upper = static_cast<int>(a.size()) - 1;
    if (!IsNumeric(a[i])) return a[i];
    const std::optional<int> start = MonthNumber(a[i]);
    if (!start) return a[i];
    std::string first = a[i];
    std::string last = a[i];
    int lastMonth = *start;
    int j = i + 1;
    for (; j <= upper; ++j) {
        const std::optional<int> month = MonthNumber(a[j]);
        if (!month) return a[i];
        const int step = *month - lastMonth;
        if (step == 1) {
            last = a[j];
            lastMonth = *month;
        } else if (step != 0) {
            break;
        }
    }
    if (j > upper) {
        i = upper;
        return first + "-" + last;
    }
    i = j - 1;
    return first != last ? first + "-" + last : first;
}

std::string PeriodText(const std::string& summary) {
    if (!Contains(summary, ",")) return "[" + summary + "]";
    const std::vector<std::string> a = Split(summary, ",");
    std::string text;
    for (int i = 0; i <= static_cast<int>(a.size()) - 2; ++i) {
        const std::string run = CompactPeriods(i, a);
        text += (text.empty() ? "[" : ",[") + run + "]";
    }
    return text;
}

} // namespace quillon
