#include "qtui/qt_convert.h"

namespace quillon {

QColor ColorFromBgr(std::uint32_t color) {
    if (color & 0x80000000u) {
        switch (color & 0xFFu) {
        case 0x01:
            return QColor(0x00, 0x00, 0x00); // desktop
        case 0x04:
            return QColor(0xF0, 0xF0, 0xF0); // menu
        case 0x05:
            return QColor(0xFF, 0xFF, 0xFF); // window
        case 0x06:
            return QColor(0x64, 0x64, 0x64); // window frame
        case 0x0C:
            return QColor(0xAB, 0xAB, 0xAB); // application workspace
        case 0x0D:
            return QColor(0x00, 0x78, 0xD7); // highlight
        case 0x0E:
            return QColor(0xFF, 0xFF, 0xFF); // highlight text
        case 0x0F:
            return QColor(0xF0, 0xF0, 0xF0); // button face
        case 0x10:
            return QColor(0xA0, 0xA0, 0xA0); // button shadow
        case 0x11:
            return QColor(0x6D, 0x6D, 0x6D); // grey text
        case 0x14:
            return QColor(0xFF, 0xFF, 0xFF); // button highlight
        case 0x18:
            return QColor(0xFF, 0xFF, 0xE1); // tooltip back
        default:
            return QColor(0x00, 0x00, 0x00); // the text colours: window, menu, button …
        }
    }
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

} // namespace quillon
