#include "controls/status_bar.h"

#include <algorithm>
#include <utility>

#include "base/vb_error.h"

namespace quillon {

void StatusPanel::SetText(std::string text) {
    owner_->Assign(text_, std::move(text), Aspect::Panels);
}

void StatusPanel::SetWidth(int twips) {
    if (twips < 0) ThrowInvalidPropertyValue();
    if (width_ == twips) return;
    width_ = twips;
    owner_->Notify(Aspect::Panels);
}

StatusBar::StatusBar(std::string name, int panelCount) : Control(std::move(name)) {
    for (int i = 0; i < std::max(panelCount, 1); ++i) panels_.push_back(StatusPanel(*this, i + 1));
}

StatusPanel& StatusBar::Panels(int index) {
    if (index < 1 || index > PanelCount()) throw VbError(kErrIndexOutOfBounds, "索引超出范围");
    return panels_[index - 1];
}

const StatusPanel& StatusBar::Panels(int index) const {
    return const_cast<StatusBar*>(this)->Panels(index);
}

StatusPanel& StatusBar::AddPanel(std::string text) {
    panels_.push_back(StatusPanel(*this, PanelCount() + 1));
    panels_.back().text_ = std::move(text);
    Notify(Aspect::Panels);
    return panels_.back();
}

} // namespace quillon
