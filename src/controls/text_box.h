// text_box.h — controls layer: headless text box: its text, the selected span, and the events
// of typing (Change after the text changed, KeyPress for a key the window may act on).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "controls/control.h"

namespace quillon {

class TextBox : public Control {
public:
    explicit TextBox(std::string name = {});

    const std::string& Text() const { return text_; }
    // Raises Change when the text differs (typing and code alike); the caret goes to the
    // start with nothing selected.
    void SetText(std::string text);

    // Counted in characters, not bytes; values beyond the text are pulled back to its end.
    int SelStart() const { return selStart_; }
    int SelLength() const { return selLength_; }
    void SetSelStart(int start);   // error 380 when negative; clears the selection
    void SetSelLength(int length); // error 380 when negative
    std::string SelText() const;
    int TextLength() const; // characters

    // A key as the user presses it: raises KeyPress with the key code, which a handler may
    // set to 0 to swallow it; gives the code left after the handlers. Typing itself is
    // SetText, since the skin's editor already holds the new text.
    int PressKey(int keyAscii);

    Event<> Change;
    Event<int&> KeyPress;

private:
    std::string text_;
    int selStart_ = 0;
    int selLength_ = 0;
};

// Number of code points in UTF-8 text, and the byte offset of code point n (clamped to size).
int Utf8Length(std::string_view text);
std::size_t Utf8Offset(std::string_view text, int n);

} // namespace quillon
