#include "summary/summary_window.h"

#include "base/vb_number.h"
#include "controls/screen.h"
#include "db/connection.h"
#include "shell/app_session.h"
#include "workbench/report_frame.h"

namespace quillon {
namespace {

// Design sizes of this window, in twips.
constexpr int kClientWidth = 15000;
constexpr int kClientHeight = 8700;
constexpr int kTopBandHeight = 600;   // Picture4
constexpr int kLeftPanelWidth = 3300; // Picture5
constexpr int kStripHeight = 630;     // Picture2
constexpr int kStatusHeight = 330;    // StatusBar1
constexpr int kMargin = 90;
constexpr int kGridTop = 240; // under a frame's caption
constexpr int kStatusPanels = 7;

// The date the hidden pickers were designed with; no code changes it.
constexpr DateTime kStoredPickerDate{2009, 3, 30};

// A computed position, rounded as the platform rounds one (ties to even).
int Half(int twips) {
    return static_cast<int>(CLng(twips / 2.0));
}

constexpr const char* kOfficeListSql =
    "select GYD_DH , GYD_Name ,职能部门编号, 职能部门名称 From 设置管理处 Inner Join 职能部门new On "
    "对应部门代号 = 职能部门编号 Where 设置管理处.终止日期 Is Null Order By len(gyd_dh),gyd_dh";

} // namespace

frm预开票汇总表::frm预开票汇总表(AppSession& session, Dialogs& dialogs)
    : Form("frm预开票汇总表", "预开票汇总表"), Picture4("Picture4"), Label7_0("Label7_0", "预开票汇总表"),
      Picture5("Picture5"), Label7_1("Label7_1", "开票日期范围"), Label7_2("Label7_2", "从"),
      Label7_3("Label7_3", "至"), DTPicker3("DTPicker3"), DTPicker4("DTPicker4"),
      Label7_4("Label7_4", "管理处列表"), Check3("Check3", "全选"), List2("List2", ListStyle::CheckBox),
      Frame2("Frame2", "预开票汇总清单"), MSFlexGrid1("MSFlexGrid1"), Command2("Command2", "…"),
      Frame3("Frame3", "预开票明细清单"), Label8("Label8"), MSFlexGrid2("MSFlexGrid2"),
      Command3("Command3", "关闭"), Command4("Command4", "输出EXCEL"), ProgressBar2("ProgressBar2"),
      Picture2("Picture2"), Command1_0("Command1_0", "统计"), Command1_1("Command1_1", "输出EXCEL"),
      Command1_2("Command1_2", "退出"), Command1_3("Command1_3", "打印"), ProgressBar1("ProgressBar1"),
      Picture3("Picture3"), Label5("Label5", "正在进行统计，请稍等......"),
      StatusBar1("StatusBar1", kStatusPanels), Frame1("Frame1", "管理项目"), Check1("Check1"),
      List1("List1", ListStyle::CheckBox), Check2("Check2"), TreeView1("TreeView1"),
      Label1("Label1", "收费项目"), Picture1("Picture1"), Label6("Label6", "统计方式"),
      Label4("Label4", "收款方式"), Label2("Label2", "凭证审批日期"), Label3("Label3", "至"),
      Combo4("Combo4"), Combo2("Combo2"), DTPicker1("DTPicker1"), DTPicker2("DTPicker2"), session_(session),
      dialogs_(dialogs) {
    PlaceControls();

    MSFlexGrid1.SetFormatString(
        "^序  |<管理项目名称      |<收费项目      |>金额        |>税额        |>收入        |^操作 ||");
    MSFlexGrid2.SetFormatString(
        "^序    |<票据簿编号|<票据号码  |<付款人                    |<收费项目          "
        "|<摘    要                              |>金额         |>税额         |>收入  "
        "       |<收款日期        |<收款人    |<开票人    |<开票日期        |");
    DTPicker1.SetValue(kStoredPickerDate);
    DTPicker2.SetValue(kStoredPickerDate);
    for (DatePicker* p : {&DTPicker1, &DTPicker2, &DTPicker3, &DTPicker4}) p->SetCustomFormat("yyyy-MM-dd");

    Command1_0.Clicked.Connect([this] { Command1_Click(0); });
    Command1_1.Clicked.Connect([this] { Command1_Click(1); });
    Command1_2.Clicked.Connect([this] { Command1_Click(2); });
    Command1_3.Clicked.Connect([this] { Command1_Click(3); });
    Command2.Clicked.Connect([this] { Command2_Click(); });
    Command3.Clicked.Connect([this] { Command3_Click(); });
    Command4.Clicked.Connect([this] { Command4_Click(); });
    Check3.Click.Connect([this] { Check3_Click(); });
    Check1.Click.Connect([this] { Check1_Click(); });
    Check2.Click.Connect([this] { Check2_Click(); });
    TreeView1.NodeCheck.Connect([this](TreeNode& node) { TreeView1_NodeCheck(node); });
    Picture2.Resize.Connect([this] { Picture2_Resize(); });
    MSFlexGrid1.Click.Connect([this] { RunUntrapped(dialogs_, [this] { MSFlexGrid1_Click(); }); });
    MSFlexGrid1.DblClick.Connect([this] { RunUntrapped(dialogs_, [this] { MSFlexGrid1_DblClick(); }); });
    MSFlexGrid2.Click.Connect([this] { MSFlexGrid2_Click(); });
}

void frm预开票汇总表::PlaceControls() {
    const int w = kClientWidth;
    const int h = kClientHeight;
    const int middle = h - kTopBandHeight - kStripHeight - kStatusHeight;

    AddControl(Picture4);
    Picture4.Move(0, 0, w, kTopBandHeight);
    AddControl(Label7_0, &Picture4);
    Label7_0.Move(kLeftPanelWidth + (w - kLeftPanelWidth - 7200) / 2, 105, 7200, 420);

    AddControl(Picture5);
    Picture5.Move(0, kTopBandHeight, kLeftPanelWidth, middle);
    AddControl(Label7_1, &Picture5);
    Label7_1.Move(120, 120, 1500, 270);
    AddControl(Label7_2, &Picture5);
    Label7_2.Move(120, 480, 240, 270);
    AddControl(DTPicker3, &Picture5);
    DTPicker3.Move(420, 420, 2700, 360);
    AddControl(Label7_3, &Picture5);
    Label7_3.Move(120, 900, 240, 270);
    AddControl(DTPicker4, &Picture5);
    DTPicker4.Move(420, 840, 2700, 360);
    AddControl(Label7_4, &Picture5);
    Label7_4.Move(120, 1350, 1500, 270);
    AddControl(Check3, &Picture5);
    Check3.Move(2220, 1320, 900, 300);
    AddControl(List2, &Picture5);
    List2.Move(60, 1710, kLeftPanelWidth - 120, middle - 1710 - kMargin);

    const int frameWidth = w - kLeftPanelWidth - kMargin;
    const int frameHeight = middle - kMargin;
    AddControl(Frame2);
    Frame2.Move(kLeftPanelWidth, kTopBandHeight + 15, frameWidth, frameHeight);
    AddControl(MSFlexGrid1, &Frame2);
    MSFlexGrid1.Move(60, kGridTop, frameWidth - 120, frameHeight - kGridTop - 60);
    AddControl(Command2, &Frame2);
    Command2.Move(frameWidth - 480, 0, 360, 240);
    Command2.SetVisible(false);

    // The detail panel is laid out over Frame2 each time it opens.
    AddControl(Frame3);
    Frame3.Move(kLeftPanelWidth, kTopBandHeight + 15, frameWidth, frameHeight);
    Frame3.SetVisible(false);
    AddControl(Label8, &Frame3);
    Label8.Move(120, 300, 6000, 270);
    AddControl(ProgressBar2, &Frame3);
    ProgressBar2.Move(60, 270, frameWidth - 120, 240);
    ProgressBar2.SetVisible(false);
    AddControl(Command4, &Frame3);
    AddControl(Command3, &Frame3);
    Command3.Move(frameWidth - 1335 - 150, 210, 1335, 450);
    Command4.Move(Command3.Left() - 1335 - 100, 210, 1335, 450);
    AddControl(MSFlexGrid2, &Frame3);
    MSFlexGrid2.Move(60, 700, frameWidth - 150, frameHeight - 450 - 400);

    AddControl(Picture2);
    Picture2.Move(0, h - kStatusHeight - kStripHeight, w, kStripHeight);
    CommandButton* const buttons[] = {&Command1_0, &Command1_1, &Command1_3, &Command1_2};
    int left = 300;
    for (CommandButton* b : buttons) {
        AddControl(*b, &Picture2);
        b->Move(left, 90, 1335, 450);
        left += 1335 + 300;
    }
    AddControl(ProgressBar1, &Picture2);
    ProgressBar1.Move(300, 135, w - 600, 360);
    ProgressBar1.SetVisible(false);
    ProgressBar1.ZOrder(0);

    AddControl(Picture3);
    Picture3.Move((w - 4800) / 2, (h - 900) / 2, 4800, 900);
    Picture3.SetVisible(false);
    AddControl(Label5, &Picture3);
    Label5.Move(120, 300, 4560, 300);

    AddControl(StatusBar1);
    StatusBar1.Move(0, h - kStatusHeight, w, kStatusHeight);
    StatusBar1.Panels(1).SetText("单位");
    StatusBar1.Panels(3).SetText("用户");
    StatusBar1.Panels(5).SetText("岗位");

    // Criteria that nothing shows; kept in the window with the state they were designed with.
    AddControl(Frame1, &Picture5);
    Frame1.Move(60, 1710, kLeftPanelWidth - 120, 3000);
    Frame1.SetVisible(false);
    for (Control* c : std::initializer_list<Control*>{&Check1, &List1, &Check2, &TreeView1, &Label1})
        AddControl(*c, &Frame1);
    TreeView1.SetCheckboxes(true);
    AddControl(Picture1, &Picture5);
    Picture1.Move(60, 1710, kLeftPanelWidth - 120, 2400);
    Picture1.SetVisible(false);
    for (Control* c : std::initializer_list<Control*>{&Label6, &Combo4, &Label4, &Combo2, &Label2, &DTPicker1,
                                                      &Label3, &DTPicker2})
        AddControl(*c, &Picture1);

    Move(0, 0, w + 240, h + 510);
}

void frm预开票汇总表::Form_Load() {
    StatusBar1.Panels(2).SetText(session_.StatusPanelText1);
    StatusBar1.Panels(4).SetText(session_.StatusPanelText2);
    StatusBar1.Panels(6).SetText(session_.StatusPanelText3);
    DTPicker3.SetValue(DateTime::Today());
    DTPicker4.SetValue(DateTime::Today());

    MSFlexGrid1.SetRows(1);
    for (int c = 0; c < MSFlexGrid1.Cols(); ++c) MSFlexGrid1.SetFixedAlignment(c, flexAlignCenterCenter);
    MSFlexGrid1.SetColWidth(MSFlexGrid1.Cols() - 1, 0);
    MSFlexGrid1.SetColWidth(MSFlexGrid1.Cols() - 2, 0);
    MSFlexGrid2.SetRows(1);
    for (int c = 0; c < MSFlexGrid2.Cols(); ++c) MSFlexGrid2.SetFixedAlignment(c, flexAlignCenterCenter);
    MSFlexGrid2.SetColWidth(MSFlexGrid2.Cols() - 1, 0);

    // No trap: a failed office query ends the load with the platform's run-time error. The
    // names keep their line breaks here.
    RunUntrapped(dialogs_, [this] {
        Recordset rs = session_.DbConnection->OpenRecordset(kOfficeListSql);
        List2.Clear();
        for (; !rs.Eof(); rs.MoveNext())
            List2.AddItem(rs.Fields(0).Value().AsText() + " " + rs.Fields(1).Value().AsText() + "【" +
                          rs.Fields(2).Value().AsText() + " " + rs.Fields(3).Value().AsText() + "】");
    });
}

void frm预开票汇总表::Form_Activate() {
    SetWindowState(2);
}

void frm预开票汇总表::Form_Resize() {
    const int w = ScaleWidth();
    const int h = ScaleHeight();
    // The aligned panels follow the window by themselves: the top band and the strip span the
    // width, the criteria panel the height between them.
    ApplyIgnoringFailure([&] { Picture4.Move(0, 0, w, Picture4.Height()); });
    ApplyIgnoringFailure([&] { StatusBar1.Move(0, h - StatusBar1.Height(), w, StatusBar1.Height()); });
    ApplyIgnoringFailure(
        [&] { Picture2.Move(0, h - StatusBar1.Height() - Picture2.Height(), w, Picture2.Height()); });
    ApplyIgnoringFailure([&] {
        Picture5.Move(0, Picture4.Height(), Picture5.Width(),
                      h - Picture4.Height() - Picture2.Height() - StatusBar1.Height());
    });

    ApplyIgnoringFailure([&] {
        List2.SetHeight(h - Picture4.Height() - Picture2.Height() - List2.Top() - StatusBar1.Height() -
                        kMargin);
    });
    ApplyIgnoringFailure([&] { Frame2.SetTop(Picture4.Height() + 15); });
    ApplyIgnoringFailure([&] { Frame2.SetLeft(Picture5.Width()); });
    ApplyIgnoringFailure([&] { Frame2.SetWidth(w - Picture5.Width() - kMargin); });
    ApplyIgnoringFailure(
        [&] { Frame2.SetHeight(h - StatusBar1.Height() - Picture4.Height() - Picture2.Height() - kMargin); });
    ApplyIgnoringFailure([&] { MSFlexGrid1.SetWidth(Frame2.Width() - 120); });
    ApplyIgnoringFailure([&] { MSFlexGrid1.SetHeight(Frame2.Height() - MSFlexGrid1.Top() - 60); });
    ApplyIgnoringFailure([&] { Label7_0.SetLeft(Frame2.Left() + Half(Frame2.Width() - Label7_0.Width())); });
}

void frm预开票汇总表::Picture2_Resize() {
    ApplyIgnoringFailure([&] { ProgressBar1.SetLeft(Command1_0.Left()); });
    ApplyIgnoringFailure([&] { ProgressBar1.SetWidth(Picture2.Width() - 2 * ProgressBar1.Left()); });
}

void frm预开票汇总表::Command1_Click(int Index) {
    switch (Index) {
    case 0:
        // The check looks at the hidden pickers, which hold one date: it never stops a run.
        if (DTPicker1.Value() > DTPicker2.Value()) {
            dialogs_.MsgBox("开票日期起始日期不能晚于截止日期，请重新选择！", kReportMessageTitle,
                            vbInformation);
            return;
        }
        RunUntrapped(dialogs_, [this] { RunSummary(); });
        break;
    case 1:
        if (Val(MSFlexGrid1.TextMatrix(MSFlexGrid1.Rows() - 1, 3)) != 0)
            ExportSummary();
        else
            dialogs_.MsgBox("无汇总数据导出！", kReportMessageTitle, vbInformation);
        break;
    case 2:
        Unload();
        break;
    case 3:
        PrintSummary();
        break;
    default:
        break;
    }
}

void frm预开票汇总表::Check3_Click() {
    const bool on = Check3.Value() == 1;
    for (int i = 0; i < List2.ListCount(); ++i) List2.SetSelected(i, on);
    // Back to the top; an empty list has no top to go to.
    if (List2.ListCount() > 0) List2.SetListIndex(0);
}

void frm预开票汇总表::Check1_Click() {
    const bool on = Check1.Value() == 1;
    for (int i = 0; i < List1.ListCount(); ++i) List1.SetSelected(i, on);
}

void frm预开票汇总表::Check2_Click() {
    const bool on = Check2.Value() == 1;
    for (int i = 1; i <= TreeView1.Count(); ++i) TreeView1.Nodes(i).SetChecked(on);
}

void frm预开票汇总表::TreeView1_NodeCheck(TreeNode& Node) {
    if (Node.Children() < 1) return;
    const int first = Node.Child()->Index();
    const int last = Node.Child()->LastSibling()->Index();
    for (int i = first; i <= last; ++i) TreeView1.Nodes(i).SetChecked(Node.Checked());
}

} // namespace quillon
