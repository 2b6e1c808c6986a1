// vb_number.cpp — the old platform's number text: Format, Val, CDbl, CInt/CLng, CStr.
// Everything that turns a double into text goes through its 15-digit decimal first, so that
// binary noise (1.005 stored as 1.00499..) never decides a rounding.
#include "base/vb_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <span>
#include <vector>

#include "base/vb_error.h"

namespace quillon {

namespace {

const char kTypeMismatch[] = "类型不匹配";
const char kOverflow[] = "溢出";

// A decimal as digits: value = 0.d1 d2 .. dn x 10^point. No leading or trailing zero digits;
// zero has no digits at all.
struct Decimal {
    bool negative = false;
    std::string digits;
    int point = 0;
};

void StripTrailingZeros(Decimal& d) {
    while (!d.digits.empty() && d.digits.back() == '0') d.digits.pop_back();
    if (d.digits.empty()) d.point = 0;
}

// The double written with 15 significant digits, the old platform's number-to-text step.
// Callers handle non-finite values before.
Decimal ToDecimal15(double value) {
    Decimal d;
    if (value == 0) return d; // -0.0 too: it never prints a sign
    d.negative = value < 0;
    char buf[40];
    // "d.dddddddddddddde+XX": one digit, point, 14 digits, exponent; to_chars rounds exactly as
    // printf's %.14e does, at a fraction of its cost.
    const auto written =
        std::to_chars(buf, buf + sizeof buf - 1, std::fabs(value), std::chars_format::scientific, 14);
    *written.ptr = '\0';
    d.digits.push_back(buf[0]);
    d.digits.append(buf + 2, 14);
    d.point = std::atoi(buf + 17) + 1;
    StripTrailingZeros(d);
    return d;
}

// Rounds the decimal half away from zero to `places` digits after the point.
void RoundHalfAway(Decimal& d, int places) {
    const int keep = d.point + places;
    if (keep >= static_cast<int>(d.digits.size())) return;
    if (keep < 0) { // even the first digit lies below half a unit of the last place
        d.digits.clear();
        d.point = 0;
        return;
    }
    const bool up = d.digits[keep] >= '5';
    d.digits.resize(keep);
    if (up) {
        int i = keep - 1;
        while (i >= 0 && d.digits[i] == '9') d.digits[i--] = '0';
        if (i < 0) {
            d.digits.insert(d.digits.begin(), '1');
            ++d.point;
        } else {
            ++d.digits[i];
        }
    }
    StripTrailingZeros(d);
}

constexpr std::uint64_t kTens[] = {1, 10, 100, 1000, 10000, 100000, 1000000}; // 10^places, as far as taken

// |value| x 10^places rounded half away from zero, as ToDecimal15 and RoundHalfAway round it, by
// arithmetic alone. The 15-digit step moves the value by at most 5e-15 of itself and the scaling
// by one rounding more, so away from a half by more than 1e-14 of the scaled value neither can
// change the result; nearer, or out of the range of exact integers, the caller takes the long way.
bool ScaledMagnitude(double value, int places, std::uint64_t& scaled) {
    if (places < 0 || places >= static_cast<int>(std::size(kTens))) return false;
    const double c = std::fabs(value) * static_cast<double>(kTens[places]);
    if (!(c < 1e15)) return false;
    const double whole = std::floor(c);
    const double fraction = c - whole; // exact below 2^52
    if (std::fabs(fraction - 0.5) <= c * 1e-14) return false;
    scaled = static_cast<std::uint64_t>(whole) + (fraction > 0.5 ? 1 : 0);
    return true;
}

// Digits before the point, without leading zeros ("" for a value below 1).
std::string IntegerDigits(const Decimal& d) {
    if (d.point <= 0) return "";
    const int n = static_cast<int>(d.digits.size());
    std::string out = d.digits.substr(0, std::min(d.point, n));
    if (d.point > n) out.append(d.point - n, '0');
    return out;
}

// Digit `i` (0-based) after the point.
char FractionDigit(const Decimal& d, int i) {
    const int index = d.point + i;
    if (index < 0 || index >= static_cast<int>(d.digits.size())) return '0';
    return d.digits[index];
}

std::string NonFiniteText(double value) {
    if (std::isnan(value)) return "NaN";
    return value < 0 ? "-INF" : "INF";
}

// ---- numeric patterns ---------------------------------------------------------------------

struct PatternToken {
    enum Kind { Zero, Hash, Point, Literal } kind;
    std::string text; // for Literal
};

struct NumberPattern {
    std::vector<PatternToken> tokens;
    bool grouping = false; // "," among the integer placeholders: thousands separators
    bool percent = false;  // "%": the value is shown times 100
};

std::size_t Utf8Length(unsigned char lead) {
    if (lead >= 0xF0) return 4;
    if (lead >= 0xE0) return 3;
    if (lead >= 0xC0) return 2;
    return 1;
}

NumberPattern ParseNumberPattern(std::string_view pattern) {
    NumberPattern p;
    bool seenPoint = false;
    auto literal = [&p](std::string_view text) {
        if (!p.tokens.empty() && p.tokens.back().kind == PatternToken::Literal)
            p.tokens.back().text += text;
        else
            p.tokens.push_back({PatternToken::Literal, std::string(text)});
    };
    for (std::size_t i = 0; i < pattern.size();) {
        const char c = pattern[i];
        if (c == '0' || c == '#') {
            p.tokens.push_back({c == '0' ? PatternToken::Zero : PatternToken::Hash, {}});
            ++i;
        } else if (c == '.' && !seenPoint) {
            p.tokens.push_back({PatternToken::Point, {}});
            seenPoint = true;
            ++i;
        } else if (c == ',' && !seenPoint) {
            p.grouping = true;
            ++i;
        } else if (c == '%') {
            p.percent = true;
            literal("%");
            ++i;
        } else if (c == '\\' && i + 1 < pattern.size()) {
            const std::size_t n = Utf8Length(static_cast<unsigned char>(pattern[i + 1]));
            literal(pattern.substr(i + 1, n));
            i += 1 + n;
        } else if (c == '"') {
            const std::size_t end = pattern.find('"', i + 1);
            const std::size_t stop = end == std::string_view::npos ? pattern.size() : end;
            literal(pattern.substr(i + 1, stop - i - 1));
            i = stop + 1;
        } else {
            const std::size_t n = Utf8Length(static_cast<unsigned char>(c));
            literal(pattern.substr(i, n));
            i += n;
        }
    }
    return p;
}

bool IsPlaceholder(const PatternToken& t) {
    return t.kind == PatternToken::Zero || t.kind == PatternToken::Hash;
}

std::string GroupThousands(const std::string& digits) {
    std::string out;
    const std::size_t n = digits.size();
    for (std::size_t i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0) out += ',';
        out += digits[i];
    }
    return out;
}

// The integer section (tokens before the point): digits are right-aligned on the
// placeholders, a "0" with no digit above it prints 0, a "#" prints nothing, and digits that
// find no placeholder all go to the leftmost one.
std::string RenderInteger(std::span<const PatternToken> section, const std::string& intDigits,
                          bool grouping) {
    int placeholders = 0;
    int firstZero = -1;
    for (const auto& t : section) {
        if (!IsPlaceholder(t)) continue;
        if (t.kind == PatternToken::Zero && firstZero < 0) firstZero = placeholders;
        ++placeholders;
    }
    std::string out;
    if (placeholders == 0) { // ".00": the integer digits still show, before the point
        for (const auto& t : section) out += t.text;
        return out + intDigits;
    }
    const int len = static_cast<int>(intDigits.size());
    if (grouping) {
        std::string padded = intDigits;
        const int minDigits = firstZero < 0 ? 0 : placeholders - firstZero;
        if (len < minDigits) padded.insert(0, minDigits - len, '0');
        bool placed = false;
        for (const auto& t : section) {
            if (!IsPlaceholder(t)) {
                out += t.text;
            } else if (!placed) {
                out += GroupThousands(padded);
                placed = true;
            }
        }
        return out;
    }
    int j = 0; // placeholder index from the left
    for (const auto& t : section) {
        if (!IsPlaceholder(t)) {
            out += t.text;
            continue;
        }
        const int k = placeholders - 1 - j; // index from the right
        if (j == 0 && len > placeholders) out += intDigits.substr(0, len - placeholders);
        if (k < len)
            out += intDigits[len - 1 - k];
        else if (t.kind == PatternToken::Zero)
            out += '0';
        ++j;
    }
    return out;
}

// A report formats every cell of a column with one pattern: the last few patterns stay parsed.
template <typename Parsed, typename Parse> const Parsed& Recent(std::string_view pattern, Parse parse) {
    constexpr std::size_t kKept = 4;
    thread_local std::vector<std::pair<std::string, Parsed>> kept;
    for (const auto& [text, parsed] : kept)
        if (text == pattern) return parsed;
    if (kept.size() == kKept) kept.erase(kept.begin());
    kept.emplace_back(std::string(pattern), parse(pattern));
    return kept.back().second;
}

// A numeric pattern with where its point is and how many places follow it.
struct CompiledPattern {
    NumberPattern p;
    std::size_t pointAt = 0;
    int places = 0;
    // "0.00", "#0.00", "0.000": "#"s and one "0" before the point, only "0"s after it. The money
    // patterns of every report; their text is the digits as they stand.
    bool plainFixed = false;
};

CompiledPattern Compile(std::string_view pattern) {
    CompiledPattern c;
    c.p = ParseNumberPattern(pattern);
    c.pointAt = c.p.tokens.size();
    for (std::size_t i = 0; i < c.p.tokens.size(); ++i) {
        if (c.p.tokens[i].kind == PatternToken::Point) c.pointAt = i;
        if (c.pointAt < i && IsPlaceholder(c.p.tokens[i])) ++c.places;
    }
    const auto& t = c.p.tokens;
    c.plainFixed = !c.p.grouping && !c.p.percent && c.pointAt < t.size() && c.pointAt >= 1 &&
                   t[c.pointAt - 1].kind == PatternToken::Zero &&
                   std::all_of(t.begin(), t.begin() + static_cast<std::ptrdiff_t>(c.pointAt) - 1,
                               [](const PatternToken& k) { return k.kind == PatternToken::Hash; }) &&
                   std::all_of(t.begin() + static_cast<std::ptrdiff_t>(c.pointAt) + 1, t.end(),
                               [](const PatternToken& k) { return k.kind == PatternToken::Zero; });
    return c;
}

std::string FormatNumber(double value, std::string_view pattern) {
    if (pattern.empty()) return CStr(value);
    if (!std::isfinite(value)) return NonFiniteText(value);
    const CompiledPattern& compiled = Recent<CompiledPattern>(pattern, Compile);
    const NumberPattern& p = compiled.p;
    const std::size_t pointAt = compiled.pointAt;
    const int places = compiled.places;

    std::uint64_t scaled = 0;
    if (compiled.plainFixed && ScaledMagnitude(value, places, scaled)) {
        // The general path below gives the same text, at several times the cost.
        char buf[48];
        char* at = buf;
        if (value < 0) *at++ = '-'; // "-0.00" as well: the sign is the value's, not the text's
        const std::uint64_t unit = kTens[places];
        at = std::to_chars(at, buf + sizeof buf, scaled / unit).ptr;
        *at++ = '.';
        char* fractionEnd = at + places;
        for (std::uint64_t rest = scaled % unit; fractionEnd > at; rest /= 10)
            *--fractionEnd = char('0' + rest % 10);
        return std::string(buf, at + places);
    }
    Decimal d = ToDecimal15(value);
    if (p.percent && !d.digits.empty()) d.point += 2;
    RoundHalfAway(d, places);

    std::string out = d.negative ? "-" : "";
    if (compiled.plainFixed) {
        const std::string integer = IntegerDigits(d);
        out += integer.empty() ? "0" : integer;
        out += '.';
        for (int i = 0; i < places; ++i) out += FractionDigit(d, i);
        return out;
    }
    out += RenderInteger(std::span(p.tokens).first(pointAt), IntegerDigits(d), p.grouping);
    if (pointAt == p.tokens.size()) return out;

    out += '.';
    int i = 0; // fraction placeholder index
    for (std::size_t t = pointAt + 1; t < p.tokens.size(); ++t) {
        const PatternToken& tok = p.tokens[t];
        if (!IsPlaceholder(tok)) {
            out += tok.text;
            continue;
        }
        if (tok.kind == PatternToken::Zero) {
            out += FractionDigit(d, i);
        } else { // "#" drops trailing zeros
            bool restZero = true;
            for (int r = i; r < places; ++r) restZero = restZero && FractionDigit(d, r) == '0';
            if (!restZero) out += FractionDigit(d, i);
        }
        ++i;
    }
    return out;
}

// ---- date patterns ------------------------------------------------------------------------

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsDateLetter(char c) {
    switch (Lower(c)) {
    case 'y':
    case 'm':
    case 'd':
    case 'h':
    case 'n':
    case 's':
        return true;
    default:
        return false;
    }
}

// A pattern is a date pattern when it has date letters and no digit placeholders.
bool IsDatePattern(std::string_view pattern) {
    bool letters = false;
    for (char c : pattern) {
        if (c == '0' || c == '#') return false;
        letters = letters || IsDateLetter(c);
    }
    return letters;
}

// Appends value as "%0*d" prints it: at least `width` places, the sign taking one of them.
void AppendPadded(std::string& out, int value, int width) {
    char buf[16];
    const auto written = std::to_chars(buf, buf + sizeof buf, value < 0 ? -static_cast<long>(value) : value);
    if (value < 0) {
        out += '-';
        --width;
    }
    const int digits = static_cast<int>(written.ptr - buf);
    if (digits < width) out.append(static_cast<std::size_t>(width - digits), '0');
    out.append(buf, written.ptr);
}

int DayOfYear(const DateTime& v) {
    int days = v.day;
    for (int m = 1; m < v.month; ++m) days += DaysInMonth(v.year, m);
    return days;
}

struct DateToken {
    char letter = 0; // 0 for literal text
    int count = 0;
    std::string text;
};

std::vector<DateToken> SplitDatePattern(std::string_view pattern) {
    std::vector<DateToken> tokens;
    for (std::size_t i = 0; i < pattern.size();) {
        const char c = Lower(pattern[i]);
        std::size_t run = 1;
        while (i + run < pattern.size() && Lower(pattern[i + run]) == c) ++run;
        const bool token = IsDateLetter(c) && (run <= 2 || (c == 'y' && run == 4));
        if (token) {
            tokens.push_back({c, static_cast<int>(run), {}});
        } else {
            if (tokens.empty() || tokens.back().letter != 0) tokens.push_back({});
            tokens.back().text += pattern.substr(i, run);
        }
        i += run;
    }
    return tokens;
}

} // namespace

std::string Format(double value, std::string_view pattern) {
    return FormatNumber(value, pattern);
}

// Tokens by runs of one letter: yyyy, yy, y (day of the year), m/mm, d/dd, h/hh, n/nn, s/ss.
// "m" right after an hour token or right before a seconds token (literals between) is minutes.
std::string Format(const DateTime& value, std::string_view pattern) {
    const std::vector<DateToken>& tokens = Recent<std::vector<DateToken>>(pattern, SplitDatePattern);
    std::string out;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const DateToken& t = tokens[i];
        const int width = t.count == 2 ? 2 : 1;
        switch (t.letter) {
        case 0:
            out += t.text;
            break;
        case 'y':
            if (t.count == 4)
                AppendPadded(out, value.year, 4);
            else if (t.count == 2)
                AppendPadded(out, value.year % 100, 2);
            else
                out += std::to_string(DayOfYear(value));
            break;
        case 'm': {
            bool minutes = false;
            for (std::size_t b = i; b-- > 0 && !minutes;) {
                if (tokens[b].letter == 0) continue;
                minutes = tokens[b].letter == 'h';
                break;
            }
            for (std::size_t a = i + 1; a < tokens.size() && !minutes; ++a) {
                if (tokens[a].letter == 0) continue;
                minutes = tokens[a].letter == 's';
                break;
            }
            AppendPadded(out, minutes ? value.minute : value.month, width);
            break;
        }
        case 'd':
            AppendPadded(out, value.day, width);
            break;
        case 'h':
            AppendPadded(out, value.hour, width);
            break;
        case 'n':
            AppendPadded(out, value.minute, width);
            break;
        case 's':
            AppendPadded(out, value.second, width);
            break;
        }
    }
    return out;
}

std::string Format(std::string_view text, std::string_view pattern) {
    if (pattern.empty()) return std::string(text);
    if (IsDatePattern(pattern)) {
        if (auto date = DateTime::ParseIso(text)) return Format(*date, pattern);
        return std::string(text);
    }
    if (IsNumeric(text)) return Format(CDbl(text), pattern);
    return std::string(text);
}

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsExponentMark(char c) {
    return c == 'E' || c == 'e' || c == 'D' || c == 'd';
}

// Converts "digits[.digits][e[sign]digits]" (already checked) to a double; overflow is error 6.
double ToDouble(const std::string& number) {
    const double value = std::strtod(number.c_str(), nullptr);
    if (!std::isfinite(value)) throw VbError(kErrOverflow, kOverflow);
    return value + 0.0; // no negative zero leaves this layer
}

// CDbl's grammar on the text without surrounding blanks: sign, digits (with "," between
// digits: the Chinese locale's thousands separator, which the old platform accepted), point,
// digits, exponent. Fills `number` with a strtod-ready text; false when the text is no number.
bool ParseWholeNumber(std::string_view text, std::string& number) {
    std::size_t b = 0, e = text.size();
    while (b < e && (text[b] == ' ' || text[b] == '\t')) ++b;
    while (e > b && (text[e - 1] == ' ' || text[e - 1] == '\t')) --e;
    std::size_t i = b;
    number.clear();
    if (i < e && (text[i] == '+' || text[i] == '-')) {
        if (text[i] == '-') number += '-';
        ++i;
    }
    int mantissaDigits = 0;
    while (i < e) {
        if (IsDigit(text[i])) {
            number += text[i++];
            ++mantissaDigits;
        } else if (text[i] == ',' && mantissaDigits > 0 && i + 1 < e && IsDigit(text[i + 1])) {
            ++i;
        } else {
            break;
        }
    }
    if (i < e && text[i] == '.') {
        number += text[i++];
        while (i < e && IsDigit(text[i])) {
            number += text[i++];
            ++mantissaDigits;
        }
    }
    if (mantissaDigits == 0) return false;
    if (i < e && IsExponentMark(text[i])) {
        number += 'e';
        ++i;
        if (i < e && (text[i] == '+' || text[i] == '-')) number += text[i++];
        if (i == e || !IsDigit(text[i])) return false;
        while (i < e && IsDigit(text[i])) number += text[i++];
    }
    return i == e;
}

} // namespace

// Blanks, tabs and line feeds count for nothing anywhere in the text (" 1 000" reads 1000), as
// the old platform had it; reading stops at the first other character that cannot continue
// the number. An exponent mark without digits after it is ignored ("1e" reads 1).
double Val(std::string_view text) {
    std::string s;
    for (char c : text)
        if (c != ' ' && c != '\t' && c != '\n') s += c;
    std::size_t i = 0;
    std::string number;
    if (i < s.size() && (s[i] == '+' || s[i] == '-')) {
        if (s[i] == '-') number += '-';
        ++i;
    }
    int digits = 0;
    while (i < s.size() && IsDigit(s[i])) {
        number += s[i++];
        ++digits;
    }
    if (i < s.size() && s[i] == '.') {
        number += s[i++];
        while (i < s.size() && IsDigit(s[i])) {
            number += s[i++];
            ++digits;
        }
    }
    if (digits == 0) return 0;
    if (i < s.size() && IsExponentMark(s[i])) {
        std::size_t j = i + 1;
        std::string exponent = "e";
        if (j < s.size() && (s[j] == '+' || s[j] == '-')) exponent += s[j++];
        if (j < s.size() && IsDigit(s[j])) {
            while (j < s.size() && IsDigit(s[j])) exponent += s[j++];
            number += exponent;
        }
    }
    return ToDouble(number);
}

double CDbl(std::string_view text) {
    std::string number;
    if (!ParseWholeNumber(text, number)) throw VbError(kErrTypeMismatch, kTypeMismatch);
    return ToDouble(number);
}

bool IsNumeric(std::string_view text) {
    std::string number;
    return ParseWholeNumber(text, number) && std::isfinite(std::strtod(number.c_str(), nullptr));
}

// std::nearbyint rounds ties to even in the default rounding mode; NaN fails both bounds.
int CInt(double value) {
    const double r = std::nearbyint(value);
    if (!(r >= -32768.0 && r <= 32767.0)) throw VbError(kErrOverflow, kOverflow);
    return static_cast<int>(r);
}

// The old platform's Long is 32 bits wide; its range is kept so overflow shows where it did.
long long CLng(double value) {
    const double r = std::nearbyint(value);
    if (!(r >= -2147483648.0 && r <= 2147483647.0)) throw VbError(kErrOverflow, kOverflow);
    return static_cast<long long>(r);
}

// Plain digits from 1E-5 up to (not including) 1E+15, the exponent form outside that span.
std::string CStr(double value) {
    if (!std::isfinite(value)) return NonFiniteText(value);
    const Decimal d = ToDecimal15(value);
    if (d.digits.empty()) return "0";
    std::string out = d.negative ? "-" : "";
    const int n = static_cast<int>(d.digits.size());
    const int exponent = d.point - 1;
    if (exponent >= 15 || exponent < -5) {
        out += d.digits[0];
        if (n > 1) {
            out += '.';
            out.append(d.digits, 1);
        }
        char buf[16];
        std::snprintf(buf, sizeof buf, "E%c%02d", exponent < 0 ? '-' : '+', std::abs(exponent));
        out += buf;
    } else if (d.point <= 0) {
        out += "0.";
        out.append(-d.point, '0');
        out += d.digits;
    } else if (d.point >= n) {
        out += d.digits;
        out.append(d.point - n, '0');
    } else {
        out += d.digits.substr(0, d.point) + "." + d.digits.substr(d.point);
    }
    return out;
}

std::string Str(double value) {
    std::string text = CStr(value);
    return text[0] == '-' ? text : " " + text;
}

double RoundMoney(double value) {
    return CDbl(Format(value, "0.00"));
}

double CentsValue(double value) {
    if (!std::isfinite(value)) return Val(Format(value, "0.00"));
    // n / 100 is one correctly rounded division, as reading the text "n e-2" is; + 0.0 drops the
    // sign of a negative value that rounds to no cents.
    if (std::uint64_t cents = 0; ScaledMagnitude(value, 2, cents))
        return (value < 0 ? -1.0 : 1.0) * (static_cast<double>(cents) / 100.0) + 0.0;
    Decimal d = ToDecimal15(value);
    RoundHalfAway(d, 2);
    if (d.digits.empty()) return 0.0; // "-0.00" reads back as 0 too
    // digits × 10^(point − n), read as strtod reads the money text: the same decimal, one rounding.
    std::string text = d.negative ? "-" : "";
    text += d.digits;
    text += 'e';
    text += std::to_string(d.point - static_cast<int>(d.digits.size()));
    double result = 0;
    std::from_chars(text.data(), text.data() + text.size(), result);
    return result + 0.0;
}

} // namespace quillon
