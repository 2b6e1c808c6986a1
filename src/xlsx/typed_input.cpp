// typed_input.cpp — Excel's reading of typed text: apostrophe, numbers, dates.
#include "xlsx/typed_input.h"

#include "base/date_time.h"
#include "base/vb_error.h"
#include "base/vb_number.h"

namespace quillon {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

// Reads 1..maxDigits ASCII digits at pos; advances pos.
bool ReadNumber(std::string_view text, std::size_t& pos, std::size_t minDigits, std::size_t maxDigits,
                int& out) {
    std::size_t start = pos;
    int value = 0;
    while (pos < text.size() && pos - start < maxDigits && text[pos] >= '0' && text[pos] <= '9')
        value = value * 10 + (text[pos++] - '0');
    if (pos - start < minDigits) return false;
    out = value;
    return true;
}

// "yyyy-m-d" with one or two digits for month and day, as Excel recognises it.
std::optional<double> ReadIsoDate(std::string_view text) {
    std::size_t pos = 0;
    int year = 0, month = 0, day = 0;
    if (!ReadNumber(text, pos, 4, 4, year) || pos >= text.size() || text[pos++] != '-') return std::nullopt;
    if (!ReadNumber(text, pos, 1, 2, month) || pos >= text.size() || text[pos++] != '-') return std::nullopt;
    if (!ReadNumber(text, pos, 1, 2, day) || pos != text.size()) return std::nullopt;
    if (!IsValidCivilDate(year, month, day)) return std::nullopt;
    return ExcelDateSerial(year, month, day);
}

// CDbl raises on every non-number, which is most texts of a report; skip the texts that
// cannot be numbers (no digit, or a character beyond ASCII) without the exception.
bool CouldBeNumber(std::string_view text) {
    bool digit = false;
    for (unsigned char c : text) {
        if (c >= 0x80) return false;
        if (c >= '0' && c <= '9') digit = true;
    }
    return digit;
}

} // namespace

std::optional<double> ExcelDateSerial(int year, int month, int day) {
    if (year < 1900 || !IsValidCivilDate(year, month, day)) return std::nullopt;
    // Days since 1970-01-01 (Howard Hinnant's days_from_civil).
    int y = month <= 2 ? year - 1 : year;
    int era = y / 400;
    int yoe = y - era * 400;
    int doy = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
    int doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    long days = static_cast<long>(era) * 146097 + doe - 719468;
    double serial = static_cast<double>(days + 25569); // 1970-01-01 is serial 25569
    if (year == 1900 && month <= 2) serial -= 1;
    return serial;
}

TypedInput ReadTypedInput(std::string_view text, bool textFormat) {
    TypedInput in;
    if (text.empty()) return in;
    if (text.front() == '\'') {
        in.kind = TypedInput::Kind::Text;
        in.text = std::string(text.substr(1));
        return in;
    }
    if (!textFormat) {
        std::string_view trimmed = Trim(text);
        if (auto serial = ReadIsoDate(trimmed)) {
            in.kind = TypedInput::Kind::Date;
            in.number = *serial;
            return in;
        }
        if (CouldBeNumber(trimmed)) {
            try {
                double value = CDbl(text);
                in.kind = TypedInput::Kind::Number;
                in.number = value == 0 ? 0.0 : value; // a cell holds no negative zero
                return in;
            } catch (const VbError&) {
                // not a number: stays text
            }
        }
    }
    in.kind = TypedInput::Kind::Text;
    in.text = std::string(text);
    return in;
}

} // namespace quillon
