// list_box.h — controls layer: headless list box, plain or with check boxes: entries, the current
// entry, the ticks, and the events a window reacts to. The Qt skin mirrors it both ways.
#pragma once

#include <string>
#include <vector>

#include "controls/control.h"

namespace quillon {

enum class ListStyle {
    Standard, // one entry at a time is selected: Selected(i) is "i is the current entry"
    CheckBox, // each entry has its own tick; the current entry is only the focus mark
};

class ListBox : public Control {
public:
    explicit ListBox(std::string name = {}, ListStyle style = ListStyle::Standard);

    ListStyle Style() const { return style_; }
    void SetStyle(ListStyle style);

    // Inserts at index, or appends when index is -1; a current entry at or behind it moves
    // along with its text. Error 5 for an index outside 0..ListCount.
    void AddItem(std::string text, int index = -1);
    // Error 5 for an index outside the list. Removing the current entry leaves none current.
    void RemoveItem(int index);
    // Empties the list; no Click.
    void Clear();

    int ListCount() const { return static_cast<int>(items_.size()); }
    // Text of entry i; empty text for an index outside the list, as the old list answered.
    std::string List(int index) const;
    void SetList(int index, std::string text); // error 381 outside the list

    int ListIndex() const { return listIndex_; } // -1 when no entry is current
    // Raises Click, as a user's click would, when the current entry changes; -1 clears.
    // Error 380 for an index outside -1..ListCount-1.
    void SetListIndex(int index);

    // Standard style: true only for the current entry; writing true makes it current,
    // writing false on the current entry clears it. CheckBox style: the entry's tick; writing
    // it raises ItemCheck and makes the entry current (so Click follows when that moves).
    // Reading outside the list gives false; writing there is error 381.
    bool Selected(int index) const;
    void SetSelected(int index, bool on);
    // Ticked entries (CheckBox style), or 1/0 for a current entry or none (Standard style).
    int SelCount() const;

    std::string Text() const { return List(listIndex_); } // current entry, empty if none

    long ItemData(int index) const; // 0 unless set; error 381 outside the list
    void SetItemData(int index, long value);

    Event<> Click;
    Event<int> ItemCheck; // CheckBox style: the index whose tick changed

private:
    void CheckIndex(int index) const;

    ListStyle style_;
    std::vector<std::string> items_;
    std::vector<bool> ticked_;
    std::vector<long> itemData_;
    int listIndex_ = -1;
};

} // namespace quillon
