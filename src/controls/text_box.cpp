#include "controls/text_box.h"

#include <algorithm>
#include <utility>

namespace quillon {

int Utf8Length(std::string_view text) {
    int n = 0;
    for (unsigned char ch : text)
        if ((ch & 0xC0) != 0x80) ++n;
    return n;
}

std::size_t Utf8Offset(std::string_view text, int n) {
    std::size_t i = 0;
    for (int seen = 0; i < text.size(); ++i) {
        if ((static_cast<unsigned char>(text[i]) & 0xC0) == 0x80) continue;
        if (seen++ == n) return i;
    }
    return text.size();
}

TextBox::TextBox(std::string name) : Control(std::move(name)) {}

void TextBox::SetText(std::string text) {
    if (text_ == text) return;
    text_ = std::move(text);
    selStart_ = 0;
    selLength_ = 0;
    Notify(Aspect::Text);
    Change.Raise();
}

int TextBox::TextLength() const {
    return Utf8Length(text_);
}

void TextBox::SetSelStart(int start) {
    if (start < 0) ThrowInvalidPropertyValue();
    selStart_ = std::min(start, TextLength());
    selLength_ = 0;
    Notify(Aspect::Selection);
}

void TextBox::SetSelLength(int length) {
    if (length < 0) ThrowInvalidPropertyValue();
    selLength_ = std::min(length, TextLength() - selStart_);
    Notify(Aspect::Selection);
}

std::string TextBox::SelText() const {
    const std::size_t from = Utf8Offset(text_, selStart_);
    const std::size_t to = Utf8Offset(text_, selStart_ + selLength_);
    return text_.substr(from, to - from);
}

int TextBox::PressKey(int keyAscii) {
    KeyPress.Raise(keyAscii);
    return keyAscii;
}

} // namespace quillon
