// combo_box.h — controls layer: headless drop-down combo: entries, the chosen entry, and an edit
// text that may hold any text, as the year and month boxes of the report windows do.
#pragma once

#include <string>
#include <vector>

#include "controls/control.h"

namespace quillon {

class ComboBox : public Control {
public:
    explicit ComboBox(std::string name = {});

    void AddItem(std::string text, int index = -1); // error 5 outside 0..ListCount
    void RemoveItem(int index);                     // error 5 outside the list
    void Clear();                                   // entries and text go; no event

    int ListCount() const { return static_cast<int>(items_.size()); }
    std::string List(int index) const; // empty outside the list

    int ListIndex() const { return listIndex_; }
    // Choosing an entry puts its text in the edit part and raises Click, as a user's pick
    // does, when the choice changes; -1 clears the choice and keeps the text.
    // Error 380 outside -1..ListCount-1.
    void SetListIndex(int index);

    const std::string& Text() const { return text_; }
    // Any text is taken, as if typed; Change follows when it differs. The choice becomes the
    // first entry equal to the text, or -1 when none is.
    void SetText(std::string text);

    Event<> Click;
    Event<> Change;

private:
    std::vector<std::string> items_;
    int listIndex_ = -1;
    std::string text_;
};

} // namespace quillon
