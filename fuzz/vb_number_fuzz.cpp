// Number and date text rules on any input: Val, CDbl, IsNumeric, CStr, Str, Format with any
// pattern, CInt, CLng, RoundMoney, ISO dates. The only failure allowed is a VbError, and the
// results must hold what the rules promise: IsNumeric says whether CDbl reads a text, CStr and
// Format("0.00") read back to the value they were made from, an ISO date survives ToIso.
#include <fuzzer/FuzzedDataProvider.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "base/date_time.h"
#include "base/vb_error.h"
#include "base/vb_number.h"

namespace {

using namespace quillon;

[[noreturn]] void Fail(const char* why, const std::string& detail) {
    std::fprintf(stderr, "%s: %s\n", why, detail.c_str());
    std::abort();
}

// CDbl of the text, or NaN when it raises a VbError.
double ReadBack(const std::string& text) {
    try {
        return CDbl(text);
    } catch (const VbError&) {
        return NAN;
    }
}

void CheckText(const std::string& text, const std::string& pattern) {
    try {
        Val(text);
    } catch (const VbError& e) {
        if (e.Number != kErrOverflow) Fail("Val raised other than overflow", text);
    }
    const bool numeric = IsNumeric(text);
    if (numeric != !std::isnan(ReadBack(text))) Fail("IsNumeric disagrees with CDbl", text);
    try {
        Format(text, pattern);
    } catch (const VbError&) {
    }
    if (auto date = DateTime::ParseIso(text)) {
        if (!IsValidCivilDate(date->year, date->month, date->day))
            Fail("ParseIso gave no calendar date", text);
        auto again = DateTime::ParseIso(date->ToIso());
        if (!again || *again != *date) Fail("ISO date changed through ToIso", text);
        Format(*date, pattern);
        Format(*date, "yyyy年mm月dd日");
    }
}

void CheckNumber(double value, const std::string& pattern) {
    const std::string general = CStr(value);
    if (general.empty()) Fail("CStr gave nothing", "");
    if (Str(value).empty()) Fail("Str gave nothing", general);
    try {
        Format(value, pattern);
    } catch (const VbError&) {
    }
    try {
        CInt(value);
    } catch (const VbError& e) {
        if (e.Number != kErrOverflow) Fail("CInt raised other than overflow", general);
    }
    try {
        CLng(value);
    } catch (const VbError& e) {
        if (e.Number != kErrOverflow) Fail("CLng raised other than overflow", general);
    }
    if (!std::isfinite(value) || std::fabs(value) >= 1e307) return;
    // 15 significant digits: the text is within half a unit of its last digit.
    const double back = ReadBack(general);
    if (!(std::fabs(back - value) <= std::fabs(value) * 1e-14)) Fail("CStr does not read back", general);
    const std::string money = Format(value, "0.00");
    const double cents = ReadBack(money);
    if (!(std::fabs(cents - value) <= 0.005 + std::fabs(value) * 1e-14))
        Fail("0.00 strays from the value", money);
    if (RoundMoney(value) != cents) Fail("RoundMoney is not Format 0.00 read back", money);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzedDataProvider in(data, size);
    // Any bits: NaN, infinities and subnormals are doubles too.
    const double value = std::bit_cast<double>(in.ConsumeIntegral<std::uint64_t>());
    const std::string pattern = in.ConsumeRandomLengthString(16);
    const std::string text = in.ConsumeRemainingBytesAsString();
    CheckNumber(value, pattern);
    CheckText(text, pattern);
    try {
        CheckNumber(Val(text), "0.00");
    } catch (const VbError&) {
    }
    return 0;
}
