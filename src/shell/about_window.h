// about_window.h — shell layer: frmAbout, the About box: program version, the company names
// from the settings, and the notice texts. Opened from the menu and centred in the frame.
#pragma once

#include "controls/command_button.h"
#include "controls/form.h"
#include "controls/label.h"

namespace quillon {

struct AppSession;
class Dialogs;

// The program's version, from the build: {major}.{minor}.{revision}.
std::string ProgramVersionText();

class frmAbout : public Form {
public:
    // frame: the main window, whose client area the box is centred in.
    frmAbout(AppSession& session, Dialogs& dialogs, const Form& frame);

    Label lblTitle{"lblTitle"};
    Label lblVersion{"lblVersion", "版本"};
    Label Label7{"Label7"};
    Label Label4{"Label4"};
    Label Label5{"Label5"};
    Label Label1{"Label1"};
    Label Label2{"Label2"};
    Label Label3{"Label3"};
    Label lblDisclaimer{"lblDisclaimer"};
    CommandButton cmdOK{"cmdOK", "确定"};
    CommandButton cmdSysInfo{"cmdSysInfo", "系统信息"};

    void cmdOK_Click() { Unload(); }
    void cmdSysInfo_Click();

protected:
    void Form_Load() override;

private:
    AppSession& session_;
    Dialogs& dialogs_;
    const Form& frame_;
};

} // namespace quillon
