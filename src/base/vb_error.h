// vb_error.h — a run-time error as the old platform raised it: a number and a description.
// Every failure the windows trap (database, conversion, workbook) arrives as one of these.
#pragma once

#include <stdexcept>
#include <string>

namespace quillon {

class VbError : public std::runtime_error {
public:
    VbError(long number, std::string description)
        : std::runtime_error(description), Number(number), Description(std::move(description)) {}

    long Number;
    std::string Description;
};

// Error numbers the windows meet by name.
inline constexpr long kErrTypeMismatch = 13;       // "类型不匹配"
inline constexpr long kErrInvalidProcCall = 5;     // "无效的过程调用或参数"
inline constexpr long kErrOverflow = 6;            // "溢出"
inline constexpr long kErrSubscriptOutOfRange = 9; // "下标越界"
inline constexpr long kErrCancel = 32755;          // the save dialog's CancelError

} // namespace quillon
