#include "shell/about_window.h"

#include <string>

#include "controls/dialogs.h"
#include "program_version.h"
#include "shell/app_session.h"
#include "shell/main_window.h"

namespace quillon {

std::string ProgramVersionText() {
    return std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
           std::to_string(kVersionRevision);
}

frmAbout::frmAbout(AppSession& session, Dialogs& dialogs, const Form& frame)
    : Form("frmAbout", "关于Quillon"), session_(session), dialogs_(dialogs), frame_(frame) {
    // Texts the deploying company may word otherwise; the program's own are neutral.
    Label1.SetCaption("物业收费数据的统计、核对与导出工具。");
    Label2.SetCaption("本程序的使用权属于部署它的公司。");
    Label3.SetCaption("保留所有权利。");
    lblDisclaimer.SetCaption("本程序只读取收费数据库，不修改任何数据；报表中的数字以数据库中的记录为准。");

    lblTitle.Move(240, 240, 5700, 360);
    lblVersion.Move(240, 660, 600, 255);
    Label7.Move(840, 660, 5100, 255);
    Label4.Move(240, 1020, 5700, 255);
    Label5.Move(240, 1290, 5700, 255);
    Label1.Move(240, 1650, 5700, 255);
    Label2.Move(240, 1920, 5700, 255);
    Label3.Move(240, 2190, 5700, 255);
    lblDisclaimer.Move(240, 2640, 4080, 780);
    cmdOK.Move(4560, 2640, 1380, 375);
    cmdSysInfo.Move(4560, 3090, 1380, 375);
    for (Control* c :
         std::initializer_list<Control*>{&lblTitle, &lblVersion, &Label7, &Label4, &Label5, &Label1, &Label2,
                                         &Label3, &lblDisclaimer, &cmdOK, &cmdSysInfo})
        AddControl(*c);
    cmdOK.Clicked.Connect([this] { cmdOK_Click(); });
    cmdSysInfo.Clicked.Connect([this] { cmdSysInfo_Click(); });
    Move(0, 0, 6360, 4080);
}

void frmAbout::Form_Load() {
    CenterForm(*this, frame_);
    Label7.SetCaption("系统信息设置系统" + ProgramVersionText());
    lblTitle.SetCaption("Quillon的一部分");
    Label4.SetCaption(session_.CompanyDisplayName);
    Label5.SetCaption(session_.CompanyDisplayNameEng);
}

void frmAbout::cmdSysInfo_Click() {
    // This platform has no system-information tool to start.
    dialogs_.MsgBox("此时系统信息不可用", "", vbOKOnly);
}

} // namespace quillon
