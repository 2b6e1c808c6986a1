// form.h — controls layer: a headless window: caption, client size, its named controls with the
// container each sits in, and the lifecycle (load, resize, unload) that the Qt skin, the CLI and
// the tests drive. Report windows derive from it and declare their controls as members.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/event.h"
#include "controls/print_job.h"

namespace quillon {

class Form {
public:
    Form(std::string name, std::string caption);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& Name() const { return name_; }
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);

    // Outer geometry and the client area, in twips. SetClientSize runs Form_Resize, as the
    // platform does whenever the window's size changes; failures in it are ignored there.
    int Left() const { return left_; }
    int Top() const { return top_; }
    int Width() const { return width_; }
    int Height() const { return height_; }
    void Move(int left, int top, int width, int height);
    int ScaleWidth() const { return scaleWidth_; }
    int ScaleHeight() const { return scaleHeight_; }
    void SetClientSize(int scaleWidth, int scaleHeight);

    // A control and the control it sits in (nullptr: the window itself); positions are
    // relative to the container, as on the old platform.
    struct Child {
        Control* control;
        Control* container;
    };
    const std::vector<Child>& Controls() const { return children_; }
    Control* FindControl(const std::string& name) const;

    // Runs Form_Load once; the menu's open calls it when it creates the window.
    void Load();
    bool IsLoaded() const { return loaded_; }
    // Shows the window (non-modal, no owner) and brings it to the front.
    void Show();
    bool Visible() const { return visible_; }
    void ZOrder(int position = 0);
    long ZLevel() const { return zLevel_; }
    // 0 normal, 1 minimised, 2 maximised within the frame.
    int WindowState() const { return windowState_; }
    void SetWindowState(int state); // error 380 outside 0..2
    // The window became the active one (shown, or brought forward by the user): Form_Activate.
    void Activate();

    // The close box: asks Form_QueryUnload, then raises Unloaded. False when the close was cancelled.
    bool Close();
    // Unload from code (Command1 "退出", cmdOK): no question asked.
    void Unload();

    // The window's result as it prints: calls print once, while the grid holds every row the
    // pages show, and returns true; a window without a result grid returns false untouched.
    virtual bool PrintResult(const std::function<void(const PrintJob&)>& /*print*/) { return false; }

    Event<Aspect> Changed; // Caption, Geometry, Visible, ZOrder, WindowState
    Event<> Unloaded;      // the owner drops the instance; the next open makes a fresh one

protected:
    void AddControl(Control& control, Control* container = nullptr);

    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Resize() {}
    // False keeps the window open.
    virtual bool Form_QueryUnload() { return true; }

private:
    std::string name_;
    std::string caption_;
    int left_ = 0, top_ = 0, width_ = 9600, height_ = 7200;
    int scaleWidth_ = 9480, scaleHeight_ = 6780;
    bool loaded_ = false;
    int windowState_ = 0;
    bool visible_ = false;
    long zLevel_ = 0;
    std::vector<Child> children_;
};

} // namespace quillon
