// qt_convert.h — Qt skin: the few conversions every binding needs: twips to pixels (15 twips
// are one pixel at 96 dpi), the grid's BGR colours and system colours to QColor, UTF-8 text.
#pragma once

#include <QColor>
#include <QString>

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon {

inline constexpr int kTwipsPerPixel = 15;

inline int TwipsToPixels(int twips) {
    // Rounded half away from zero, so that a negative position mirrors a positive one.
    return twips >= 0 ? (twips + kTwipsPerPixel / 2) / kTwipsPerPixel
                      : -((-twips + kTwipsPerPixel / 2) / kTwipsPerPixel);
}
inline int PixelsToTwips(int pixels) {
    return pixels * kTwipsPerPixel;
}

// A colour in the old byte order (blue in the high byte); 0x800000nn is system colour nn,
// resolved to the classic desktop defaults so the screens look the same everywhere.
QColor ColorFromBgr(std::uint32_t color);

inline QString ToQString(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline std::string ToUtf8(const QString& text) {
    return text.toUtf8().toStdString();
}

} // namespace quillon
