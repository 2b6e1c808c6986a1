// control.h — controls layer: what every headless control has (name, geometry in twips, Visible,
// Enabled, z-order, focus requests) and the Changed event through which the Qt skin follows it.
#pragma once

#include <cstdint>
#include <string>

#include "controls/event.h"

namespace quillon {

// Which part of a control's state changed; the skin refreshes only that part.
enum class Aspect {
    Geometry, // Left, Top, Width, Height
    Visible,
    Enabled,
    ZOrder,
    Focus, // SetFocus was called
    Caption,
    Text,
    Items,       // list entries added, removed or replaced
    Selection,   // ListIndex, Selected, SelStart/SelLength
    Value,       // Value of a picker, check box or progress bar
    Range,       // Min/Max of a progress bar, format of a picker
    Appearance,  // colours, styles, word wrap, mouse pointer
    Panels,      // status bar panels
    Nodes,       // tree nodes added, checked, expanded
    Cells,       // grid texts or cell formats
    Layout,      // grid shape: rows, columns, sizes, alignment, merging, format string
    CurrentCell, // grid Row/Col, TopRow/LeftCol
    Redraw,      // grid Redraw switched back on: repaint everything
    WindowState, // a window normal, minimised or maximised
};

// Run-time error numbers that the controls raise, as the old platform numbered them.
inline constexpr long kErrInvalidPropertyValue = 380; // "无效的属性值"
inline constexpr long kErrInvalidArrayIndex = 381;    // "无效的属性数组索引"
inline constexpr long kErrInvalidRowValue = 30009;    // "无效的行值"
inline constexpr long kErrInvalidColValue = 30010;    // "无效的列值"
inline constexpr long kErrIndexOutOfBounds = 35600;   // "索引超出范围"
inline constexpr long kErrElementNotFound = 35601;    // "找不到元素"
inline constexpr long kErrKeyNotUnique = 35602;       // "关键字不唯一"

// Colours are in the grid's byte order (blue in the high byte); 0x800000nn names a system colour.
inline constexpr std::uint32_t kColorWindow = 0x80000005;     // window background
inline constexpr std::uint32_t kColorWindowText = 0x80000008; // window text
inline constexpr std::uint32_t kColorButtonFace = 0x8000000F; // 3-D face: fixed cells, panels
inline constexpr std::uint32_t kColorButtonText = 0x80000012; // text on a 3-D face

[[noreturn]] void ThrowInvalidPropertyValue();
[[noreturn]] void ThrowInvalidArrayIndex();

class Control {
public:
    explicit Control(std::string name = {});
    virtual ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string& Name() const { return name_; }

    int Left() const { return left_; }
    int Top() const { return top_; }
    int Width() const { return width_; }
    int Height() const { return height_; }
    void SetLeft(int twips);
    void SetTop(int twips);
    // A negative size is refused with error 380, so a resize rule that comes out negative
    // fails and the control keeps its last size.
    void SetWidth(int twips);
    void SetHeight(int twips);
    void Move(int left, int top, int width, int height);

    bool Visible() const { return visible_; }
    void SetVisible(bool on);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool on);

    // ZOrder(0) brings the control in front of its siblings, ZOrder(1) sends it behind them.
    // ZLevel orders controls: the larger one is in front.
    void ZOrder(int position = 0);
    long ZLevel() const { return zLevel_; }

    // The skin moves the keyboard focus; headless, the request is counted for tests.
    void SetFocus();
    int FocusRequests() const { return focusRequests_; }

    Event<Aspect> Changed;

protected:
    void Notify(Aspect what) { Changed.Raise(what); }
    // Replaces a text member and notifies when it differs; true when it changed.
    bool Assign(std::string& member, std::string value, Aspect what);
    // Called after Width or Height changed; picture boxes raise their Resize event here.
    virtual void OnResized() {}

private:
    std::string name_;
    int left_ = 0;
    int top_ = 0;
    int width_ = 0;
    int height_ = 0;
    bool visible_ = true;
    bool enabled_ = true;
    long zLevel_ = 0;
    int focusRequests_ = 0;
};

} // namespace quillon
