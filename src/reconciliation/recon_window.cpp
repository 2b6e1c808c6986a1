#include "reconciliation/recon_window.h"

#include "base/date_time.h"
#include "base/vb_error.h"
#include "base/vb_number.h"
#include "controls/screen.h"
#include "model/department_catalog.h"

namespace quillon {

namespace {

// Design geometry of the condition panel (twips, inside Picture2 and Picture6).
constexpr int kListTop = 780;
constexpr int kCriteriaHeight = 2850; // Picture6

// Header of the columns that every layout has: row number, month, rate, the two VAT blocks.
struct FixedHeader {
    const char* top;
    const char* bottom;
    int width;
};
constexpr FixedHeader kLeadingColumns[] = {
    {"序", "序", 500},
    {"开票年月", "开票年月", 900},
    {"税率", "税率", 600},
    {"增值税专用发票", "金额", 1300},
    {"增值税专用发票", "税额", 1200},
    {"增值税普通发票", "金额", 1300},
    {"增值税普通发票", "税额", 1200},
};

} // namespace

ReconWindow::ReconWindow(const ReconForm& form, AppSession& session, Dialogs& dialogs)
    : ReportForm(form.formName, kReconCaption, dialogs), Label4("Label4", "增值税票据核对统计条件"),
      Label5("Label5", "选择部门"), List1("List1"), Picture6("Picture6"), Label6("Label6", "设定开票年月"),
      Combo1("Combo1"), Combo2("Combo2"), Label7("Label7", "月至 "), Combo3("Combo3"),
      Label2("Label2", form.checkFormula), form_(form), session_(session) {
    Label1_0.SetCaption(kReconCaption);
    Label3.SetCaption("正在生成票据核对表，请稍等......");

    const int panelWidth = Picture2.Width();
    AddControl(Label4, &Picture2);
    Label4.Move(120, 120, panelWidth - 240, 300);
    AddControl(Label5, &Picture2);
    Label5.Move(120, 480, panelWidth - 240, 255);
    AddControl(List1, &Picture2);
    List1.Move(60, kListTop, panelWidth - 120, 4350);

    AddControl(Picture6, &Picture2);
    Picture6.Move(0, Picture2.Height() - kCriteriaHeight, panelWidth, kCriteriaHeight);
    AddControl(Label6, &Picture6);
    Label6.Move(120, 120, panelWidth - 240, 255);
    AddControl(Combo1, &Picture6);
    Combo1.Move(120, 450, 1300, 300);
    AddControl(Combo2, &Picture6);
    Combo2.Move(120, 900, 900, 300);
    AddControl(Label7, &Picture6);
    Label7.Move(1080, 945, 540, 255);
    AddControl(Combo3, &Picture6);
    Combo3.Move(1680, 900, 900, 300);
    AddControl(Command3, &Picture6);
    Command3.Move(120, 1380, 1335, 450);
    AddControl(Label2, &Picture6);
    Label2.Move(120, 1950, panelWidth - 240, 780); // three lines of the formula

    // Two header rows; no fixed column is relied on, so data cells all scroll.
    MSFlexGrid1.SetFixedRows(2);
    MSFlexGrid1.SetFixedCols(0);

    List1.Click.Connect([this] { List1_Click(); });
    Command1.Clicked.Connect([this] { Command1_Click(); });
    Command3.Clicked.Connect([this] { Command3_Click(); });
    Command2.Clicked.Connect([this] { Command2_Click(); });

    SetClientSize(kFrameClientWidth, kFrameClientHeight);
}

void ReconWindow::Form_Load() {
    RunUntrapped([this] {
        SetStatusPanels(session_.StatusPanelText1, session_.StatusPanelText2, session_.StatusPanelText3);
        const DateTime today = DateTime::Today();
        for (int year = 2016; year <= 2049; ++year) Combo1.AddItem(std::to_string(year));
        Combo1.SetText(std::to_string(today.year));
        for (int month = 1; month <= 12; ++month) {
            Combo2.AddItem(Format(month, "00"));
            Combo3.AddItem(Format(month, "00"));
        }
        Combo2.SetText("01");
        Combo3.SetText(Format(today.month, "00"));
        InitReconGrid();
        LoadDepartmentList(*session_.DbConnection, dialogs_, List1);
        const BillTypeLists lists = LoadBillTypeLists(*session_.DbConnection, form_.billTypes);
        AllTypeCodes = lists.AllTypes;
        SpecialTypeCodes = lists.SpecialTypes;
        OrdinaryTypeCodes = lists.OrdinaryTypes;
        ThirdTypeCodes = lists.FourthTypes;
    });
}

void ReconWindow::Form_Resize() {
    ResizeFamilyA(*this, Picture6, List1);
}

void ReconWindow::List1_Click() {
    // The year is the one shown at the click; a later change of Combo1 leaves the title alone.
    RunUntrapped([this] {
        Label1_0.SetCaption(Combo1.Text() + "年度" + "【" + DepartmentCaptionOf(List1.Text()) +
                            "】票据核对表");
    });
}

void ReconWindow::Command1_Click() {
    Unload();
}

void ReconWindow::Command3_Click() {
    // Only the extraction and the two adjustments trap their failures; anything else that
    // fails in a run (the month statement above all) ends the process.
    RunUntrapped([this] { RunReconciliation(); });
}

void ReconWindow::RunReconciliation() {
    if (List1.ListIndex() < 0) {
        dialogs_.MsgBox("请先选择统计部门!", kReportMessageTitle, vbInformation);
        return;
    }
    if (Combo3.Text() < Combo2.Text()) {
        dialogs_.MsgBox("截至月份不能小于开始月份,请重新选择!", kReportMessageTitle, vbInformation);
        Combo3.SetFocus();
        return;
    }
    const std::string DeptCode = DepartmentCodeOf(List1.Text());
    const std::string OfficeCode = OfficeCodeOf(List1.Text());

    MSFlexGrid1.SetRows(2);
    BeginBusy("正在提取收费项目,请稍等......");
    LoadChargeCategories(DeptCode, OfficeCode);
    const int n = CategoryCount();
    if (n == 0) {
        dialogs_.MsgBox("没有满足条件的开票数据,请重新设置条件!", kReportMessageTitle, vbInformation);
        EndBusy();
        return;
    }
    std::string ItemCodeList;
    for (int i = 1; i <= n; ++i) {
        if (i > 1) ItemCodeList += ",";
        ItemCodeList += (*ChargeCategories)[i].CategoryCode;
    }

    MSFlexGrid1.SetRows(2);
    ShowWaitText("正在生成票据核对表，请稍等......");
    FillInvoiceMatrix(ItemCodeList, DeptCode, OfficeCode);
    FillCollectedPreInvoices(ItemCodeList, DeptCode, OfficeCode);
    FillUncollectedPreInvoices(ItemCodeList, DeptCode, OfficeCode);
    WriteVerdicts();
    AddGrandTotalRow();
    EndBusy();
}

int ReconWindow::CategoryCount() const {
    if (!ChargeCategories) throw VbError(kErrSubscriptOutOfRange, "下标越界");
    return static_cast<int>(ChargeCategories->size()) - 1;
}

int ReconWindow::FirstMonth() const {
    return CInt(Val(Combo2.Text()));
}
int ReconWindow::LastMonth() const {
    return CInt(Val(Combo3.Text()));
}
std::string ReconWindow::MonthKey(int month) const {
    return Combo1.Text() + Format(month, "00");
}

void ReconWindow::SetCellColor(int row, int col, std::uint32_t color) {
    MSFlexGrid1.SetRow(row);
    MSFlexGrid1.SetCol(col);
    MSFlexGrid1.SetCellBackColor(color);
}

void ReconWindow::SetHeader(int col, const char* top, const char* bottom, int width) {
    MSFlexGrid1.SetTextMatrix(0, col, top);
    MSFlexGrid1.SetTextMatrix(1, col, bottom);
    MSFlexGrid1.SetColWidth(col, width);
}

void ReconWindow::InitReconGrid() {
    FlexGrid& g = MSFlexGrid1;
    const int f = form_.firstCategoryCol;
    g.SetRows(2);
    g.SetCols(f + 5);
    g.SetRow(0);
    g.SetMergeCells(flexMergeRestrictColumns);
    for (int c = 0; c < g.Cols(); ++c) g.SetFixedAlignment(c, flexAlignCenterCenter);
    for (int c : {0, 1, 2, g.Cols() - 2, g.Cols() - 1}) g.SetMergeCol(c, true);
    g.SetMergeRow(0, true);

    int col = 0;
    for (const auto& h : kLeadingColumns) SetHeader(col++, h.top, h.bottom, h.width);
    for (int i = 0; i < form_.thirdBlockCols; ++i)
        SetHeader(col++, form_.thirdBlock[i].top, form_.thirdBlock[i].bottom, form_.thirdBlock[i].width);
    SetHeader(col++, "财务交账", "小计", 1200);
    SetHeader(col++, "当月收预开票", "金额", 1200);
    SetHeader(col++, "当月未收预开", "金额", 1200);
    SetHeader(col++, "核对结果", "差额", 1200);
    SetHeader(col, "备注", "备注", 1600);
    g.SetRow(1);
}

void ReconWindow::LayoutReconGrid() {
    FlexGrid& g = MSFlexGrid1;
    const int f = form_.firstCategoryCol;
    const int n = CategoryCount();
    g.SetRows(2);
    g.SetCols(f + n + 5);
    g.SetRow(0);
    g.SetMergeCells(flexMergeRestrictColumns);
    for (int c = 0; c < g.Cols(); ++c) g.SetFixedAlignment(c, flexAlignCenterCenter);
    for (int c : {0, 1, 2}) g.SetMergeCol(c, true);
    g.SetMergeRow(0, true);

    int col = 0;
    for (const auto& h : kLeadingColumns) SetHeader(col++, h.top, h.bottom, h.width);
    for (int i = 0; i < form_.thirdBlockCols; ++i)
        SetHeader(col++, form_.thirdBlock[i].top, form_.thirdBlock[i].bottom, form_.thirdBlock[i].width);
    // One 财务交账 text over every category and the 小计, so row 0 merges across them all.
    for (int i = 1; i <= n; ++i) {
        g.SetMergeCol(col, false);
        SetHeader(col++, "财务交账", (*ChargeCategories)[i].CategoryName.c_str(), 1200);
    }
    g.SetMergeCol(col, false);
    SetHeader(col++, "财务交账", "小计", 1200);
    // The two adjustment columns keep whatever merge switch their position had before.
    SetHeader(col++, "当月收预开票", "金额", 1200);
    SetHeader(col++, "当月未收预开", "金额", 1200);
    g.SetMergeCol(col, true);
    SetHeader(col++, "核对结果", "差额", 1200);
    g.SetMergeCol(col, true);
    SetHeader(col, "备注", "备注", 1600);
    g.SetRow(1);
}

} // namespace quillon
