#include "db/value.h"

#include "base/vb_error.h"
#include "base/vb_number.h"

namespace quillon {

std::string Value::AsText() const {
    if (IsNull()) return {};
    if (const auto* i = std::get_if<std::int64_t>(&v_)) return std::to_string(*i);
    if (const auto* d = std::get_if<double>(&v_)) return CStr(*d);
    if (const auto* t = std::get_if<DateTime>(&v_)) return t->ToIso();
    return std::get<std::string>(v_);
}

double Value::AsNumber() const {
    if (IsNull()) throw VbError(94, "无效使用 Null");
    if (const auto* i = std::get_if<std::int64_t>(&v_)) return static_cast<double>(*i);
    if (const auto* d = std::get_if<double>(&v_)) return *d;
    if (IsDate()) throw VbError(kErrTypeMismatch, "类型不匹配");
    return CDbl(std::get<std::string>(v_));
}

DateTime Value::AsDate() const {
    if (const auto* t = std::get_if<DateTime>(&v_)) return *t;
    if (const auto* s = std::get_if<std::string>(&v_)) {
        if (auto parsed = DateTime::ParseIso(*s)) return *parsed;
    }
    if (IsNull()) throw VbError(94, "无效使用 Null");
    throw VbError(kErrTypeMismatch, "类型不匹配");
}

} // namespace quillon
