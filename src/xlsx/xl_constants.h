// xl_constants.h — workbook layer: the automation constants the report writers pass, with
// Excel's own values, and the error number every workbook failure carries.
#pragma once

namespace quillon {

// HorizontalAlignment / VerticalAlignment
inline constexpr int xlGeneral = 1;
inline constexpr int xlLeft = -4131;
inline constexpr int xlCenter = -4108;
inline constexpr int xlRight = -4152;
inline constexpr int xlFill = 5;
inline constexpr int xlJustify = -4130;
inline constexpr int xlCenterAcrossSelection = 7;
inline constexpr int xlDistributed = -4117;
inline constexpr int xlTop = -4160;
inline constexpr int xlBottom = -4107;

// Borders.LineStyle
inline constexpr int xlContinuous = 1;
inline constexpr int xlDash = -4115;
inline constexpr int xlDashDot = 4;
inline constexpr int xlDashDotDot = 5;
inline constexpr int xlDot = -4118;
inline constexpr int xlDouble = -4119;
inline constexpr int xlSlantDashDot = 13;
inline constexpr int xlLineStyleNone = -4142;

// Excel's automation interface reports every refused member call and every failed save as
// run-time error 1004; the windows show that number to the user.
inline constexpr long kErrXlApplication = 1004;
inline constexpr const char* kErrXlApplicationText = "应用程序定义或对象定义错误";

} // namespace quillon
