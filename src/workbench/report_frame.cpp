#include "workbench/report_frame.h"

#include "base/vb_error.h"
#include "base/vb_number.h"
#include "controls/screen.h"
#include "controls/tree_view.h"

namespace quillon {

namespace {

// One rule of Form_Resize. The old handler ran under "resume next": a property that refuses
// its value (a negative size) keeps its last one and the next rule still runs.
template <typename Rule> void Apply(Rule rule) {
    try {
        rule();
    } catch (const VbError&) {
    }
}

// Half a length in twips, rounded as the platform rounds a computed position (ties to even).
int Half(int twips) {
    return static_cast<int>(CLng(twips / 2.0));
}

// What the aligned controls do by themselves when the window changes size: the title band
// spans the top, the status bar the bottom, the condition panel the height between them.
void PlaceAlignedControls(ReportForm& f) {
    const int w = f.ScaleWidth();
    const int h = f.ScaleHeight();
    Apply([&] { f.Picture1.Move(0, 0, w, f.Picture1.Height()); });
    Apply([&] { f.StatusBar1.Move(0, h - f.StatusBar1.Height(), w, f.StatusBar1.Height()); });
    Apply([&] {
        f.Picture2.Move(0, f.Picture1.Height(), f.Picture2.Width(),
                        h - f.Picture1.Height() - f.StatusBar1.Height());
    });
}

// Steps 1 to 5 of the rules, common to families A, B and C.
void PlaceResultArea(ReportForm& f) {
    const int w = f.ScaleWidth();
    const int h = f.ScaleHeight();
    Apply([&] { f.Command1.SetLeft(w - f.Command1.Width() - 330); }); // replaced by step 9
    Apply([&] { f.Picture3.SetTop(f.Picture1.Height()); });
    Apply([&] { f.Picture3.SetLeft(f.Picture2.Width()); });
    Apply([&] { f.Picture3.SetHeight(h - f.Picture3.Top() - f.Picture4.Height() - f.StatusBar1.Height()); });
    Apply([&] { f.Picture3.SetWidth(w - f.Picture2.Width()); });
}

// Steps 7 to 9: the button bar under the result area, Command1 as far from its right edge
// as Command2 is from its left edge.
void PlaceButtonBar(ReportForm& f) {
    Apply([&] { f.Picture4.SetLeft(f.Picture3.Left()); });
    Apply([&] { f.Picture4.SetWidth(f.Picture3.Width()); });
    Apply([&] { f.Picture4.SetTop(f.Picture3.Height() + f.Picture1.Height()); });
    Apply([&] { f.Command1.SetLeft(f.Picture4.Width() - f.Command1.Width() - f.Command2.Left()); });
}

// Steps 12 and 13, and step 14's grid height.
void PlaceGrid(ReportForm& f) {
    Apply([&] { f.ProgressBar1.SetWidth(f.Picture4.Width() - 60); });
    Apply([&] { f.MSFlexGrid1.SetWidth(f.Picture3.Width() - f.MSFlexGrid1.Left() - kGridMargin); });
    Apply([&] { f.MSFlexGrid1.SetHeight(f.Picture3.Height() - f.MSFlexGrid1.Top() - kGridMargin); });
}

// Step 15: the wait panel centred on the grid, whether it shows or not.
void CentreWaitPanel(ReportForm& f) {
    Apply([&] { f.Picture5.SetTop(Half(f.MSFlexGrid1.Height() - f.Picture5.Height())); });
    Apply([&] { f.Picture5.SetLeft(Half(f.MSFlexGrid1.Width() - f.Picture5.Width())); });
}

} // namespace

ReportForm::ReportForm(std::string name, std::string caption, Dialogs& dialogs)
    : Form(std::move(name), std::move(caption)), Picture1("Picture1"), Label1_0("Label1_0"),
      Picture2("Picture2"), Picture3("Picture3"), MSFlexGrid1("MSFlexGrid1"), Picture5("Picture5"),
      Label3("Label3"), Picture4("Picture4"), Command1("Command1", "退出"), Command2("Command2", "导出Excel"),
      Command3("Command3", "开始统计"), ProgressBar1("ProgressBar1"),
      StatusBar1("StatusBar1", kStatusBarPanels), dialogs_(dialogs) {
    const int w = kFrameClientWidth;
    const int h = kFrameClientHeight;
    const int resultWidth = w - kConditionPanelWidth;
    const int resultHeight = h - kTitleBandHeight - kButtonBarHeight - kStatusBarHeight;

    AddControl(Picture1);
    Picture1.Move(0, 0, w, kTitleBandHeight);
    AddControl(Label1_0, &Picture1);
    Label1_0.Move(kConditionPanelWidth + (resultWidth - 7200) / 2, 105, 7200, 420);

    AddControl(Picture2);
    Picture2.Move(0, kTitleBandHeight, kConditionPanelWidth, h - kTitleBandHeight - kStatusBarHeight);

    AddControl(Picture3);
    Picture3.Move(kConditionPanelWidth, kTitleBandHeight, resultWidth, resultHeight);
    AddControl(MSFlexGrid1, &Picture3);
    MSFlexGrid1.Move(0, 0, resultWidth - kGridMargin, resultHeight - kGridMargin);

    // The wait panel floats over the grid and is hidden at rest.
    AddControl(Picture5, &Picture3);
    Picture5.Move((MSFlexGrid1.Width() - 4800) / 2, (MSFlexGrid1.Height() - 900) / 2, 4800, 900);
    Picture5.SetVisible(false);
    Picture5.ZOrder(0);
    AddControl(Label3, &Picture5);
    Label3.Move(120, 300, 4560, 300);

    AddControl(Picture4);
    Picture4.Move(kConditionPanelWidth, kTitleBandHeight + resultHeight, resultWidth, kButtonBarHeight);
    AddControl(Command2, &Picture4);
    Command2.Move(300, 90, 1335, 450);
    AddControl(Command1, &Picture4);
    Command1.Move(resultWidth - 1335 - 300, 90, 1335, 450);
    AddControl(ProgressBar1, &Picture4);
    ProgressBar1.Move(30, 135, resultWidth - 60, 360);
    ProgressBar1.SetVisible(false);

    Command3.Move(0, 0, 1335, 450); // the window places it in its own panel

    AddControl(StatusBar1);
    StatusBar1.Move(0, h - kStatusBarHeight, w, kStatusBarHeight);
    // Odd panels carry the designed captions; 2, 4 and 6 get the session's texts at load.
    StatusBar1.Panels(1).SetText("单位");
    StatusBar1.Panels(3).SetText("用户");
    StatusBar1.Panels(5).SetText("岗位");

    // The window opens at its design size: the client area laid out above, plus border and caption.
    Move(0, 0, w + 240, h + 510);
}

void ReportForm::SetStatusPanels(const std::string& text1, const std::string& text2,
                                 const std::string& text3) {
    StatusBar1.Panels(2).SetText(text1);
    StatusBar1.Panels(4).SetText(text2);
    StatusBar1.Panels(6).SetText(text3);
}

void ReportForm::BeginBusy(const std::string& text) {
    TheScreen().SetMousePointer(kPointerHourglass);
    ShowWaitText(text);
}

void ReportForm::ShowWaitText(const std::string& text) {
    Label3.SetCaption(text);
    Picture5.SetVisible(true);
    dialogs_.Yield();
}

void ReportForm::EndBusy() {
    Picture5.SetVisible(false);
    TheScreen().SetMousePointer(kPointerDefault);
}

void ReportForm::RunUntrapped(const std::function<void()>& handler) {
    quillon::RunUntrapped(dialogs_, handler);
}

void RunUntrapped(Dialogs& dialogs, const std::function<void()>& handler) {
    try {
        handler();
    } catch (const VbError& e) {
        dialogs.RuntimeError(e.Number, e.Description);
    }
}

void ApplyIgnoringFailure(const std::function<void()>& rule) {
    Apply(rule);
}

void ResizeFamilyA(ReportForm& f, Panel& Picture6, ListBox& List1) {
    PlaceAlignedControls(f);
    PlaceResultArea(f);
    Apply([&] { f.Label1_0.SetLeft(f.Picture3.Left() + Half(f.Picture3.Width() - f.Label1_0.Width())); });
    PlaceButtonBar(f);
    Apply([&] { Picture6.SetTop(f.Picture4.Top() - Picture6.Height() + 30); });
    Apply([&] { List1.SetHeight(Picture6.Top() - List1.Top() + 60); });
    PlaceGrid(f);
    CentreWaitPanel(f);
}

int ResizeFamilyB(ReportForm& f, ListBox& List1, Panel& Picture8) {
    PlaceAlignedControls(f);
    PlaceResultArea(f);
    Apply([&] { Picture8.SetLeft(Half(f.Picture3.Width() - Picture8.Width())); });
    Apply([&] { f.Label1_0.SetLeft(f.Picture3.Left() + Half(f.Picture3.Width() - f.Label1_0.Width())); });
    PlaceButtonBar(f);
    Apply([&] {
        List1.SetHeight(f.ScaleHeight() - f.Picture1.Height() - List1.Top() - f.StatusBar1.Height());
    });
    PlaceGrid(f);
    // Taken from the grid's height as it now stands, also when the rule above could not set it.
    const int pageSize = CInt(static_cast<double>(f.MSFlexGrid1.Height()) / f.MSFlexGrid1.RowHeight(0) - 1);
    CentreWaitPanel(f);
    return pageSize;
}

void ResizeFamilyC(ReportForm& f, TreeView& TreeView1, Label& Label1) {
    PlaceAlignedControls(f);
    PlaceResultArea(f);
    Apply([&] { Label1.SetLeft(Half(f.Picture3.Width() - Label1.Width())); });
    PlaceButtonBar(f);
    Apply([&] { TreeView1.SetHeight(f.ScaleHeight() - f.Picture1.Height() - f.StatusBar1.Height()); });
    PlaceGrid(f);
    CentreWaitPanel(f);
}

} // namespace quillon
