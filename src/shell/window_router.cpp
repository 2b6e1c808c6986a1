#include "shell/window_router.h"

#include <stdexcept>
#include <utility>

namespace quillon {

WindowRouter::WindowRouter(AppSession& session, Dialogs& dialogs) : session_(session), dialogs_(dialogs) {}

WindowRouter::~WindowRouter() = default;

void WindowRouter::Register(const std::string& windowName, WindowFactory factory) {
    factories_[windowName] = std::move(factory);
}

bool WindowRouter::IsRegistered(const std::string& windowName) const {
    return factories_.contains(windowName);
}

Form& WindowRouter::Open(const std::string& windowName) {
    ReleaseUnloaded();
    auto it = open_.find(windowName);
    if (it == open_.end()) {
        auto factory = factories_.find(windowName);
        if (factory == factories_.end()) throw std::logic_error("no window registered as " + windowName);
        std::unique_ptr<Form> form = factory->second(session_, dialogs_);
        Form* instance = form.get();
        form->Unloaded.Connect([this, windowName, instance] { OnUnloaded(windowName, instance); });
        it = open_.emplace(windowName, std::move(form)).first;
        Form& created = *it->second;
        try {
            Created.Raise(created);
            created.Load();
        } catch (...) {
            // A load that fails leaves no default instance behind; the views let go first.
            created.Unload();
            throw;
        }
    }
    Form& form = *it->second;
    form.Show();
    form.ZOrder(0);
    return form;
}

Form* WindowRouter::Find(const std::string& windowName) const {
    auto it = open_.find(windowName);
    return it == open_.end() ? nullptr : it->second.get();
}

std::vector<Form*> WindowRouter::OpenWindows() const {
    std::vector<Form*> forms;
    for (const auto& [name, form] : open_) forms.push_back(form.get());
    return forms;
}

void WindowRouter::ReleaseUnloaded() {
    unloaded_.clear();
}

void WindowRouter::OnUnloaded(const std::string& windowName, const Form* instance) {
    auto it = open_.find(windowName);
    if (it == open_.end() || it->second.get() != instance) return; // unloaded before
    unloaded_.push_back(std::move(it->second));
    open_.erase(it);
}

} // namespace quillon
