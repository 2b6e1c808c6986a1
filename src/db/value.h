// value.h — one field value as the database layer hands it over: NULL, a number, text or a date.
// NULL stays distinct from empty text; the reports test for it.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "base/date_time.h"

namespace quillon {

class Value {
public:
    Value() = default; // NULL
    Value(std::int64_t v) : v_(v) {}
    Value(double v) : v_(v) {}
    Value(std::string v) : v_(std::move(v)) {}
    Value(const char* v) : v_(std::string(v)) {}
    Value(DateTime v) : v_(v) {}

    bool IsNull() const { return std::holds_alternative<std::monostate>(v_); }
    bool IsInteger() const { return std::holds_alternative<std::int64_t>(v_); }
    bool IsDouble() const { return std::holds_alternative<double>(v_); }
    bool IsNumber() const { return IsInteger() || IsDouble(); }
    bool IsText() const { return std::holds_alternative<std::string>(v_); }
    bool IsDate() const { return std::holds_alternative<DateTime>(v_); }

    // The value joined to "" as the old code did: NULL gives "", numbers their CStr text,
    // dates "yyyy-mm-dd" (with the time when it is not midnight).
    std::string AsText() const;
    // The value as a number: numbers as they are, text through CDbl (VbError 13 when it is not
    // a number), NULL raises VbError 94 "无效使用 Null".
    double AsNumber() const;
    // Dates as they are, ISO text parsed; anything else raises VbError 13.
    DateTime AsDate() const;

    bool operator==(const Value&) const = default;

private:
    std::variant<std::monostate, std::int64_t, double, std::string, DateTime> v_;
};

} // namespace quillon
