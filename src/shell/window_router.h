// window_router.h — shell layer: the default instance of each window the menu opens. A window is
// made on first use by the factory registered under its name, shown and brought to the front;
// an open one is only brought forward; once unloaded, the next open makes a fresh one.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "controls/event.h"
#include "controls/form.h"

namespace quillon {

struct AppSession;
class Dialogs;

using WindowFactory = std::function<std::unique_ptr<Form>(AppSession&, Dialogs&)>;

class WindowRouter {
public:
    WindowRouter(AppSession& session, Dialogs& dialogs);
    ~WindowRouter();
    WindowRouter(const WindowRouter&) = delete;
    WindowRouter& operator=(const WindowRouter&) = delete;

    // Registers or replaces the factory for a window name; an instance already open stays
    // until it is unloaded.
    void Register(const std::string& windowName, WindowFactory factory);
    bool IsRegistered(const std::string& windowName) const;

    // Creates the default instance when there is none (Created is raised before it loads, so
    // a skin sees Form_Load's work), then Show and ZOrder 0. std::logic_error for a name
    // nobody registered. What Form_Load throws reaches the caller, and no instance is kept.
    Form& Open(const std::string& windowName);

    // The open default instance, or nullptr.
    Form* Find(const std::string& windowName) const;
    std::vector<Form*> OpenWindows() const;

    // Frees the instances unloaded so far. An instance is not freed inside its own Unloaded
    // event, because that event and the handler that unloaded it are still running; Open
    // frees them, and a skin may call this once its views have let go of them.
    void ReleaseUnloaded();

    // A new instance was made; raised before its load.
    Event<Form&> Created;

private:
    void OnUnloaded(const std::string& windowName, const Form* instance);

    AppSession& session_;
    Dialogs& dialogs_;
    std::map<std::string, WindowFactory> factories_;
    std::map<std::string, std::unique_ptr<Form>> open_;
    std::vector<std::unique_ptr<Form>> unloaded_;
};

} // namespace quillon
