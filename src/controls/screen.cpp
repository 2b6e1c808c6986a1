#include "controls/screen.h"

#include "controls/control.h"

namespace quillon {

void Screen::SetMousePointer(int pointer) {
    if ((pointer < 0 || pointer > 15) && pointer != 99) ThrowInvalidPropertyValue();
    if (pointer == mousePointer_) return;
    mousePointer_ = pointer;
    Changed.Raise(pointer);
}

Screen& TheScreen() {
    static Screen screen;
    return screen;
}

} // namespace quillon
