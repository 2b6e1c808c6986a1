#include "shell/placeholder_window.h"

#include <algorithm>
#include <utility>

namespace quillon {

PlaceholderReportForm::PlaceholderReportForm(std::string windowName, std::string reportCaption)
    : Form(std::move(windowName), reportCaption) {
    Label1.SetCaption("“" + reportCaption + "”尚未完成，此版本中暂不能使用。");
    Label1.Move(480, 480, 6000, 600);
    Command1.Move(480, 1320, 1215, 375);
    AddControl(Label1);
    AddControl(Command1);
    Command1.Clicked.Connect([this] { Unload(); });
    Move(0, 0, 7200, 3000);
}

void PlaceholderReportForm::Form_Resize() {
    Label1.SetWidth(std::max(ScaleWidth() - 960, 0));
}

} // namespace quillon
