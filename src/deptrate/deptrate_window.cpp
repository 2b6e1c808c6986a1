#include "deptrate/deptrate_window.h"

#include <functional>

#include "base/vb_error.h"
#include "base/vb_number.h"
#include "base/vb_text.h"
#include "controls/screen.h"
#include "db/connection.h"
#include "shell/app_session.h"
#include "workbench/statement_text.h"

namespace quillon {
namespace {

constexpr const char* kTitle = "增值税开票统计汇总";

// Left(text, InStr(text, " ") - 1) and Mid(text, InStr(text, " ") + 1): code and name of a node.
// The node texts are made here with one blank after the code, so the blank is always found.
std::string CodeOfNode(const std::string& text) {
    return text.substr(0, text.find(' '));
}
std::string NameOfNode(const std::string& text) {
    const std::size_t blank = text.find(' ');
    return blank == std::string::npos ? text : text.substr(blank + 1);
}

// A computed position in twips, rounded as the platform rounds one (ties to even).
int HalfTwips(int twips) {
    return static_cast<int>(CLng(twips / 2.0));
}

// The tree is built under "resume next": a statement that fails is skipped and the next one runs.
void IgnoringFailure(const std::function<void()>& step) {
    try {
        step();
    } catch (const VbError&) {
    }
}

} // namespace

frm部门开票分税率统计表::frm部门开票分税率统计表(AppSession& session, Dialogs& dialogs)
    : ReportForm("frm部门开票分税率统计表", kTitle, dialogs), TreeView1("TreeView1"),
      Check1("Check1", "全选"), DTPicker1("DTPicker1"), DTPicker2("DTPicker2"),
      Label2("Label2", "正在导出数据，请稍等......"), Label4("Label4", "选择部门"),
      Label5("Label5", "开票日期范围"), Label6("Label6", "至"), session_(session) {
    Label1_0.SetCaption(kTitle);
    Label3.SetCaption("正在统计，请稍等......");
    Command3.SetCaption("统计");

    // The tree fills the condition panel; its caption and 全选 sit in the title band above it, the
    // date range and 统计 in the button bar beside 导出Excel, the export notice over the grid.
    AddControl(Label4, &Picture1);
    Label4.Move(120, 180, 1000, 270);
    AddControl(Check1, &Picture1);
    Check1.Move(1200, 150, 900, 300);
    AddControl(Label2, &Picture3);
    Label2.Move(120, 120, 3600, 270);
    Label2.SetVisible(false);
    Label2.ZOrder(0);
    AddControl(TreeView1, &Picture2);
    TreeView1.Move(0, 0, Picture2.Width(), Picture2.Height());
    TreeView1.SetCheckboxes(true);
    AddControl(Label5, &Picture4);
    Label5.Move(1935, 180, 1200, 270);
    AddControl(DTPicker1, &Picture4);
    DTPicker1.Move(3135, 120, 1500, 360);
    DTPicker1.SetCustomFormat("yyyy-MM-dd");
    AddControl(Label6, &Picture4);
    Label6.Move(4695, 180, 240, 270);
    AddControl(DTPicker2, &Picture4);
    DTPicker2.Move(4995, 120, 1500, 360);
    DTPicker2.SetCustomFormat("yyyy-MM-dd");
    AddControl(Command3, &Picture4);
    Command3.Move(6735, 90, 1335, 450);
    ProgressBar1.ZOrder(0); // an export's progress covers the criteria, not the other way round

    // Two header rows: the rate headings and the amount captions under them.
    MSFlexGrid1.SetFixedRows(2);

    Command1.Clicked.Connect([this] { Unload(); });
    Command2.Clicked.Connect([this] { Command2_Click(); });
    // The run traps nothing: a database failure ends in the platform's run-time error report.
    Command3.Clicked.Connect([this] { RunUntrapped([this] { Command3_Click(); }); });
    Check1.Click.Connect([this] { Check1_Click(); });
    TreeView1.NodeCheck.Connect([this](TreeNode& node) { TreeView1_NodeCheck(node); });
}

void frm部门开票分税率统计表::Form_Load() {
    SetStatusPanels(session_.StatusPanelText1, session_.StatusPanelText2, session_.StatusPanelText3);
    DTPicker1.SetValue(DateTime::Today());
    DTPicker2.SetValue(DateTime::Today());
    LoadDeptTree();
    // Neither the rates nor the grid layout trap a failure.
    RunUntrapped([this] {
        LoadTaxRates();
        InitGridCols();
        BuildRateGrid();
    });
}

void frm部门开票分税率统计表::Form_Resize() {
    ResizeFamilyC(*this, TreeView1, Label1_0);
}

// --- department tree -------------------------------------------------------------------------

// Length first, so that code "9" comes before "10". A department whose only parent links have
// all ended drops out, since the link's end date is tested in the Where.
constexpr const char* kDeptTreeSql =
    "Select 职能部门new.职能部门编号,职能部门new.职能部门名称,上级部门编号 From 职能部门new  Left Join "
    "上级部门new on 职能部门new.职能部门编号=上级部门new.职能部门编号 Where 职能部门new.终止日期 Is Null  "
    "And 上级部门new.终止日期 Is Null order by len(职能部门new.职能部门编号),职能部门new.职能部门编号";

void frm部门开票分税率统计表::LoadDeptTree() {
    DeptRecs.assign(1, DeptRec{});
    Recordset rs;
    IgnoringFailure([&] { rs = session_.DbConnection->OpenRecordset(kDeptTreeSql); });
    while (rs.IsOpen() && !rs.Eof()) {
        DeptRec rec;
        IgnoringFailure([&] { rec.DeptCode = rs.Fields(0).Value().AsText(); });
        IgnoringFailure([&] { rec.DeptName = Replace(rs.Fields(1).Value().AsText(), "\r\n", ""); });
        IgnoringFailure([&] { rec.ParentCode = rs.Fields(2).Value().AsText(); }); // NULL reads as ""
        DeptRecs.push_back(std::move(rec));
        bool moved = false;
        IgnoringFailure([&] {
            rs.MoveNext();
            moved = true;
        });
        if (!moved) break;
    }
    for (std::size_t i = 1; i < DeptRecs.size(); ++i) {
        if (!DeptRecs[i].ParentCode.empty()) continue;
        const DeptRec& rec = DeptRecs[i];
        // A duplicate key fails the add; the children are still looked for, under the first node.
        IgnoringFailure(
            [&] { TreeView1.Add("", 0, "$" + rec.DeptCode, rec.DeptCode + " " + rec.DeptName, 1); });
        AddChildDepts(rec.DeptCode);
    }
    if (TreeView1.Count() >= 2) TreeView1.Nodes(1).SetExpanded(true);
}

void frm部门开票分税率统计表::AddChildDepts(const std::string& ParentCode) {
    // A failure ends this level only; the caller goes on with its next record. Since every
    // department's key can be added once, a cycle in the parent links ends at its first repeat.
    try {
        for (std::size_t i = 1; i < DeptRecs.size(); ++i) {
            if (DeptRecs[i].ParentCode != ParentCode) continue;
            const std::string code = DeptRecs[i].DeptCode;
            TreeView1.Add("$" + ParentCode, tvwChild, "$" + code, code + " " + DeptRecs[i].DeptName, 2);
            AddChildDepts(code);
        }
    } catch (const VbError&) {
    }
}

void frm部门开票分税率统计表::TreeView1_NodeCheck(TreeNode& Node) {
    if (Node.Children() < 1) return;
    // By index range, not by descent: nodes were added depth first, so the range holds the
    // children and the descendants of all but the last child. That child's own children keep
    // their ticks; users rely on it to tick a branch without its last sub-branch.
    const int first = Node.Checked() ? Node.Child()->FirstSibling()->Index() : Node.Child()->Index();
    const int last = Node.Child()->LastSibling()->Index();
    for (int i = first; i <= last; ++i) TreeView1.Nodes(i).SetChecked(Node.Checked());
}

void frm部门开票分税率统计表::Check1_Click() {
    const bool on = Check1.Value() == 1;
    for (int i = 1; i <= TreeView1.Count(); ++i) TreeView1.Nodes(i).SetChecked(on);
}

// --- run -------------------------------------------------------------------------------------

void frm部门开票分税率统计表::Command3_Click() {
    if (DTPicker1.Value() > DTPicker2.Value()) {
        dialogs_.MsgBox("开票起始日期不能晚于截止日期，请重新选择！", kReportMessageTitle, vbInformation);
        DTPicker1.SetFocus();
        return;
    }
    CurDeptCode.clear();
    for (int i = 1; i <= TreeView1.Count(); ++i) {
        const TreeNode& node = TreeView1.Nodes(i);
        if (!node.Checked()) continue;
        CurDeptCode = CodeOfNode(node.Text());
        CurDeptName = NameOfNode(node.Text());
    }
    if (CurDeptCode.empty()) {
        dialogs_.MsgBox("请至少勾选一个统计部门！", kReportMessageTitle, vbInformation);
        TreeView1.SetFocus();
        return;
    }

    Picture5.SetTop(HalfTwips(Picture3.Height() - Picture5.Height()));
    Picture5.SetLeft(HalfTwips(Picture3.Width() - Picture5.Width()));
    Picture5.SetVisible(true);
    Picture5.ZOrder(0);
    TheScreen().SetMousePointer(kPointerHourglass);
    dialogs_.Yield();

    MSFlexGrid1.SetRows(2);
    // One row per ticked node, wherever it stands: a parent's row never holds its children's sums.
    for (int i = 1; i <= TreeView1.Count(); ++i) {
        const TreeNode& node = TreeView1.Nodes(i);
        if (!node.Checked()) continue;
        CurDeptCode = CodeOfNode(node.Text());
        CurDeptName = NameOfNode(node.Text());
        QueryDeptRow(CurDeptCode, CurDeptName);
    }
    AddTotalRow();

    Picture5.SetVisible(false);
    TheScreen().SetMousePointer(kPointerDefault);
}

// --- rates and grid --------------------------------------------------------------------------

void frm部门开票分税率统计表::LoadTaxRates() {
    auto rs = session_.DbConnection->OpenRecordset(
        "Select Distinct 税率 From 税控盘收费项目设置 Where 税率 <> 0 Order By 税率");
    if (rs.Eof()) {
        // Without a rate there is no column to count in; the program, not only the window, ends.
        dialogs_.MsgBox("没有设置税率，无法统计报表！", kReportMessageTitle, vbInformation);
        dialogs_.EndProgram();
    }
    TaxRates.assign(1, TaxRate{});
    for (; !rs.Eof(); rs.MoveNext()) TaxRates.push_back(TaxRateFromValue(rs.Fields("税率").Value()));
}

void frm部门开票分税率统计表::InitGridCols() {
    FlexGrid& g = MSFlexGrid1;
    g.SetRows(2);
    g.SetCols(2);
    g.SetRow(0);
    g.SetMergeCells(flexMergeRestrictColumns);
    for (int c = 0; c < g.Cols(); ++c) g.SetFixedAlignment(c, flexAlignCenterCenter);
    g.SetMergeCol(0, true);
    g.SetMergeCol(1, true);
    for (int r = 0; r <= 1; ++r) {
        g.SetTextMatrix(r, 0, "序");
        g.SetTextMatrix(r, 1, "开票部门");
    }
    g.SetColWidth(0, 600);
    g.SetColWidth(1, 2000);
}

void frm部门开票分税率统计表::BuildRateGrid() {
    FlexGrid& g = MSFlexGrid1;
    RateColCount = static_cast<int>(TaxRates.size()) - 1;
    const int lastCol = 3 * RateColCount + 2; // empty, of zero width: marks the end of the grid
    g.SetRows(2);
    g.SetCols(3 * RateColCount + 3);
    g.SetRow(0);
    g.SetMergeCells(flexMergeRestrictColumns);
    for (int c = 0; c < g.Cols(); ++c) g.SetFixedAlignment(c, flexAlignCenterCenter);

    g.SetMergeCol(0, true);
    g.SetTextMatrix(0, 0, "序");
    g.SetColWidth(0, 500);
    g.SetMergeCol(1, true);
    g.SetTextMatrix(0, 1, "开票部门");
    g.SetColWidth(1, 3000);
    g.SetMergeRow(0, true);
    g.SetMergeCol(3, false);
    // Equal texts side by side on row 0 merge into one heading per rate.
    for (int k = 0; k < RateColCount; ++k) {
        const std::string heading = TaxRatePercentText(TaxRates[k + 1]) + "%税率";
        for (int j = 0; j < 3; ++j) {
            g.SetTextMatrix(0, 2 + 3 * k + j, heading);
            g.SetColWidth(2 + 3 * k + j, 1300);
        }
    }
    g.SetMergeCol(lastCol, true);
    g.SetTextMatrix(0, lastCol, "");
    g.SetColWidth(lastCol, 0);

    g.SetRow(1);
    g.SetTextMatrix(1, 0, "序");
    g.SetColWidth(0, 500);
    g.SetTextMatrix(1, 1, "开票部门");
    g.SetColWidth(1, 3000);
    static const char* const kAmounts[] = {"含税金额", "税额", "不含税金额"};
    for (int k = 0; k < RateColCount; ++k) {
        for (int j = 0; j < 3; ++j) {
            g.SetTextMatrix(1, 2 + 3 * k + j, kAmounts[j]);
            g.SetColWidth(2 + 3 * k + j, 1300);
        }
    }
    g.SetTextMatrix(1, lastCol, "");
    g.SetColWidth(lastCol, 0);
}

// Gross at one rate for one invoicing department over whole days of the invoice date. Exchanged
// invoices count once (the replacing one is left out), voided ones not at all; negative invoices
// add up with their sign. Net is worked out by the program, never read.
constexpr const char* kDeptRateSql =
    "Select Sum(票据开票数据.金额) AS 含税金额 ,Sum(票据开票数据.税额) AS 税额 From 票据 Inner Join "
    "票据开票数据 ON 票据.票据编号 = 票据开票数据.票据编号 And 票据.入库单编号=票据开票数据.入库单编号 Where "
    "Convert(char(8), 票据.开票日期, 112) Between  '{start}' And '{end}' And 票据.被换票入库单编号 Is Null "
    "And 票据.被换票票据编号 Is Null And 票据.作废日期 Is Null And 票据开票数据.税率 = {rate} And "
    "票据.开票部门编号 = '{dept}'";

void frm部门开票分税率统计表::QueryDeptRow(const std::string& DeptCode, const std::string& DeptName) {
    FlexGrid& g = MSFlexGrid1;
    g.SetRows(g.Rows() + 1);
    g.SetRow(g.Rows() - 1);
    g.SetCol(0);
    g.SetText(std::to_string(g.Row() - 1));
    g.SetCol(1);
    g.SetText(DeptName);

    const std::string start = Format(DTPicker1.Value(), "yyyymmdd");
    const std::string end = Format(DTPicker2.Value(), "yyyymmdd");
    for (int k = 1; k <= RateColCount; ++k) {
        const std::string rate = TaxRateLiteral(TaxRates[k]);
        const std::string sql =
            FillStatement(kDeptRateSql, {{"start", start}, {"end", end}, {"rate", rate}, {"dept", DeptCode}});
        auto rs = session_.DbConnection->OpenRecordset(sql);

        // Each figure is rounded to two places first; the net is taken from the rounded ones.
        auto money = [&](const char* field, double& amount) {
            const Value& v = rs.Fields(field).Value();
            amount = 0;
            if (v.IsNull()) return std::string();
            std::string text = Format(v.AsNumber(), "0.00");
            amount = Val(text);
            return text;
        };
        double gross = 0, tax = 0;
        g.SetCol(g.Col() + 1);
        g.SetText(money("含税金额", gross));
        g.SetCol(g.Col() + 1);
        g.SetText(money("税额", tax));
        g.SetCol(g.Col() + 1);
        const double net = gross - tax;
        g.SetText(net == 0 ? std::string() : Format(net, "0.00"));
    }
}

void frm部门开票分税率统计表::AddTotalRow() {
    FlexGrid& g = MSFlexGrid1;
    g.SetRedraw(false);
    g.SetRows(g.Rows() + 1);
    g.SetRow(g.Rows() - 1);
    g.SetTextMatrix(g.Row(), 1, "合计");
    // The sum of what the cells show, two places each; an empty cell counts 0. The zero-width
    // end column gets no total.
    for (int c = 2; c <= g.Cols() - 2; ++c) {
        double sum = 0;
        for (int r = 2; r <= g.Rows() - 2; ++r) sum += Val(g.TextMatrix(r, c));
        g.SetTextMatrix(g.Rows() - 1, c, Format(sum, "0.00"));
    }
    g.SetRedraw(true);
}

} // namespace quillon
