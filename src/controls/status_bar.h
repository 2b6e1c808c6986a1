// status_bar.h — controls layer: headless status bar with numbered panels (1-based, as the
// windows address them: panels 2, 4 and 6 carry the session texts, panel 7 a run's progress).
#pragma once

#include <deque>
#include <string>

#include "controls/control.h"

namespace quillon {

class StatusBar;

class StatusPanel {
public:
    int Index() const { return index_; }
    const std::string& Text() const { return text_; }
    void SetText(std::string text);
    int Width() const { return width_; } // twips
    void SetWidth(int twips);

private:
    friend class StatusBar;
    StatusPanel(StatusBar& owner, int index) : owner_(&owner), index_(index) {}

    StatusBar* owner_;
    int index_;
    std::string text_;
    int width_ = 1440;
};

class StatusBar : public Control {
public:
    // A status bar comes with the panels it was designed with; there is always at least one.
    explicit StatusBar(std::string name = {}, int panelCount = 1);

    int PanelCount() const { return static_cast<int>(panels_.size()); }
    // Error 35600 outside 1..PanelCount.
    StatusPanel& Panels(int index);
    const StatusPanel& Panels(int index) const;
    // Appends one panel and gives it.
    StatusPanel& AddPanel(std::string text = {});

private:
    friend class StatusPanel;
    std::deque<StatusPanel> panels_; // deque: a panel reference stays valid when one is added
};

} // namespace quillon
