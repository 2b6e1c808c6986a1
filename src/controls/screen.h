// screen.h — controls layer: the process-wide screen object of the old platform; windows switch
// its mouse pointer to the hourglass during a run and the Qt skin shows that cursor.
#pragma once

#include "controls/event.h"

namespace quillon {

inline constexpr int kPointerDefault = 0;
inline constexpr int kPointerHourglass = 11;

class Screen {
public:
    Screen() = default;
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;

    int MousePointer() const { return mousePointer_; }
    // 0 default, 11 hourglass, or any other pointer number of the platform (0..15, 99).
    // Error 380 for other numbers. Changed follows when it differs.
    void SetMousePointer(int pointer);

    Event<int> Changed; // the new pointer

private:
    int mousePointer_ = kPointerDefault;
};

// The one screen of the process.
Screen& TheScreen();

} // namespace quillon
