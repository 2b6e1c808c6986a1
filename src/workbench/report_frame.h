// report_frame.h — workbench layer: the frame every report window repeats (title band, condition
// panel, result area with the grid, button bar, status bar, wait panel), its resize rules by
// window family, and the busy state of a run.
#pragma once

#include <functional>
#include <string>

#include "controls/combo_box.h"
#include "controls/command_button.h"
#include "controls/dialogs.h"
#include "controls/flex_grid.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/panel.h"
#include "controls/progress_bar.h"
#include "controls/status_bar.h"

namespace quillon {

class TreeView;

// Design sizes of the frame, in twips. The window's own controls are placed against these.
inline constexpr int kFrameClientWidth = 15000;
inline constexpr int kFrameClientHeight = 8700;
inline constexpr int kTitleBandHeight = 600;      // Picture1
inline constexpr int kConditionPanelWidth = 3300; // Picture2
inline constexpr int kButtonBarHeight = 630;      // Picture4
inline constexpr int kStatusBarHeight = 330;      // StatusBar1
inline constexpr int kGridMargin = 60;            // MSFlexGrid1 inside Picture3
inline constexpr int kStatusBarPanels = 7;        // 2, 4, 6: session texts; 7: a run's progress
inline constexpr const char* kReportMessageTitle = "系统提示";

// The frame's controls as members of the window, named as the users' screens name them.
// Control arrays of the old screens become name_index: Label1(0) is Label1_0.
// Command3 belongs to the frame but sits in each window's own panel, so the window registers
// it (AddControl(Command3, &itsPanel)); every other frame control is registered here.
class ReportForm : public Form {
public:
    ReportForm(std::string name, std::string caption, Dialogs& dialogs);

    Panel Picture1; // title band across the top
    Label Label1_0; // report title, centred over the result area
    Panel Picture2; // condition panel at the left
    Panel Picture3; // result area
    FlexGrid MSFlexGrid1;
    Panel Picture5;         // wait panel over the grid, hidden at rest
    Label Label3;           // the wait panel's text
    Panel Picture4;         // button bar under the result area
    CommandButton Command1; // "退出"
    CommandButton Command2; // "导出Excel"
    CommandButton Command3; // "开始统计"
    ProgressBar ProgressBar1;
    StatusBar StatusBar1;
    CommonDialogState CommonDialog1;

protected:
    // First step of every Form_Load: panels 2, 4 and 6 get the session's three texts.
    void SetStatusPanels(const std::string& text1, const std::string& text2, const std::string& text3);

    // Busy state of a run: hourglass, the step's text in Label3, the wait panel shown, and one
    // yield so that it paints before the long statement starts.
    void BeginBusy(const std::string& text);
    // A later step of the same run: new text, panel shown, one yield.
    void ShowWaitText(const std::string& text);
    // The end of a run, with or without data: panel hidden, normal pointer.
    void EndBusy();

    // Runs a handler that traps nothing itself: a failure ends the process with the platform's
    // run-time error report (Dialogs::RuntimeError).
    void RunUntrapped(const std::function<void()>& handler);

    Dialogs& dialogs_;
};

// Resize rules by family (Form_Resize). Each rule runs by itself with failures ignored, so a
// window made too small keeps the last valid size of whatever its rule could not set.
// Family A (the reconciliation windows): Picture6 with the criteria under List1.
void ResizeFamilyA(ReportForm& form, Panel& Picture6, ListBox& List1);
// Family B (the detail windows): List1 fills the panel, Picture8 (the pager bar) is centred in the
// result area. Gives the pager's page size: grid height / RowHeight(0) - 1, ties to even.
int ResizeFamilyB(ReportForm& form, ListBox& List1, Panel& Picture8);
// Family C (the department window): TreeView1 fills the panel; its title label is Label1, centred
// in the result area's own width.
void ResizeFamilyC(ReportForm& form, TreeView& TreeView1, Label& Label1);
// Family D (the summary window) lays itself out; its window does so.

// Free forms of the two run rules above, for a window of another frame: a handler that traps
// nothing (a failure ends in Dialogs::RuntimeError), and one layout rule whose failure is ignored.
void RunUntrapped(Dialogs& dialogs, const std::function<void()>& handler);
void ApplyIgnoringFailure(const std::function<void()>& rule);

} // namespace quillon
