#include "shell/main_window.h"

#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "controls/dialogs.h"
#include "shell/about_window.h"
#include "shell/app_session.h"
#include "shell/placeholder_window.h"

namespace quillon {

const MenuRoute kMenuRoutes[7] = {
    {"停车费明细表", "frm停车费明细表New"},
    {"增值税开票明细表", "frm票据开票明细表New"},
    {"增值税预开明细表", "frm票据预开明细表New"},
    {"开票票据核对表", "frm票据核对表"},
    {"增值税开票统计汇总表", "frm部门开票分税率统计表"},
    {"预开票汇总表", "frm预开票汇总表"},
    {"关于软件", "frmAbout"},
};

std::vector<BannerCopy> BannerCopies(int scaleWidth) {
    std::vector<BannerCopy> copies;
    for (int i = 1; i <= 10000; ++i) {
        const int dest = i * kBannerStripWidth + kBannerStripLeft;
        if (scaleWidth - kBannerEndWidth <= dest) break;
        copies.push_back(BannerCopy{kBannerStripLeft, kBannerStripWidth, dest});
    }
    copies.push_back(BannerCopy{kBannerStripLeft, kBannerEndWidth, scaleWidth - kBannerEndWidth});
    return copies;
}

void CenterForm(Form& form, const Form& frame) {
    form.Move((frame.ScaleWidth() - form.Width()) / 2, (frame.ScaleHeight() - form.Height()) / 2,
              form.Width(), form.Height());
}

MDIForm1::MDIForm1(AppSession& session, Dialogs& dialogs, std::string programFolder)
    : Form("MDIForm1", "Quillon收费报表"), Windows(session, dialogs), session_(session), dialogs_(dialogs),
      programFolder_(std::move(programFolder)) {
    for (MenuEntry* e : {&停车费明细表, &增值税开票明细表, &增值税预开明细表, &开票票据核对表,
                         &增值税开票统计汇总表, &mnuSeparator, &预开票汇总表})
        统计报表.Add(*e);
    退出系统.Add(退出);
    关于.Add(关于软件);
    关于.Add(联系我们);
    menus_ = {&统计报表, &退出系统, &关于};

    for (const MenuRoute& route : kMenuRoutes) {
        MenuEntry* entry = FindMenu(route.entry);
        const std::string window = route.window;
        entry->Clicked.Connect([this, window] { OpenWindow(window); });
        if (window == "frmAbout") continue;
        const std::string caption = entry->Caption();
        Windows.Register(window, [window, caption](AppSession&, Dialogs&) {
            return std::make_unique<PlaceholderReportForm>(window, caption);
        });
    }
    Windows.Register("frmAbout",
                     [this](AppSession& s, Dialogs& d) { return std::make_unique<frmAbout>(s, d, *this); });
    退出.Clicked.Connect([this] { 退出_Click(); });
    联系我们.Clicked.Connect([this] { 联系我们_Click(); });

    Picture1.SetHeight(kBannerHeight);
    AddControl(Picture1);
    Picture1.Resize.Connect([this] { Picture1_Resize(); });
    Picture1_Resize();
}

MenuEntry* MDIForm1::FindMenu(const std::string& name) const {
    std::vector<MenuEntry*> pending(menus_.rbegin(), menus_.rend());
    while (!pending.empty()) {
        MenuEntry* e = pending.back();
        pending.pop_back();
        if (e->Name() == name) return e;
        pending.insert(pending.end(), e->Children().rbegin(), e->Children().rend());
    }
    return nullptr;
}

Form& MDIForm1::OpenWindow(const std::string& windowName) {
    return Windows.Open(windowName);
}

void MDIForm1::退出_Click() {
    dialogs_.EndProgram();
}

void MDIForm1::Form_Load() {
    // Kept from a deployment with logins: the program has none, so the role is always empty
    // and the comparison grants nothing.
    [[maybe_unused]] const bool superUser = session_.CurrentRoleName == "超级用户";
}

void MDIForm1::Form_Resize() {
    Picture1.SetWidth(ScaleWidth());
    picture_.reset();
    PaintBackground();
    Changed.Raise(Aspect::Appearance);
}

bool MDIForm1::Form_QueryUnload() {
    if (dialogs_.MsgBox("确认要退出系统吗？", "", vbYesNo + vbInformation) == vbNo) return false;
    dialogs_.EndProgram();
    return true; // not reached: the program has ended
}

void MDIForm1::Picture1_Resize() {
    bannerOps_ = BannerCopies(Picture1.Width());
}

// The old program made the background in a short-lived helper window: the picture file from the
// program's folder, stretched to the client area. Any failure leaves the background empty.
void MDIForm1::PaintBackground() {
    std::error_code error;
    const std::filesystem::path file = std::filesystem::path(programFolder_) / kBackgroundFileName;
    if (!std::filesystem::is_regular_file(file, error)) return;
    picture_ = BackgroundPicture{file.string(), ScaleWidth(), ScaleHeight()};
}

} // namespace quillon
