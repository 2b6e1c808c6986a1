// The summary run (统计) and the clicks on the summary grid.
#include "base/vb_number.h"
#include "base/vb_text.h"
#include "controls/screen.h"
#include "controls/text_width.h"
#include "db/connection.h"
#include "shell/app_session.h"
#include "summary/summary_window.h"
#include "workbench/report_frame.h"
#include "workbench/statement_text.h"

namespace quillon {
namespace {

constexpr std::uint32_t kSubtotalFill = 0xFFFFC0;
constexpr std::uint32_t kTotalFill = 0xFFC0C0;
constexpr std::uint32_t kMarkFill = 0xE0E0E0;
constexpr std::uint32_t kLinkColour = 0xFF0000; // blue in the grid's byte order

// An invoice counts when it was written in the range and its money had not come in by the end
// of it: paid later, or unpaid and flagged 预开. Returned, voided and exchanged ones never count.
constexpr const char* kSummarySql =
    " SELECT 设置管理处.GYD_DH,设置管理处.GYD_NAME, SetupSFXM.DH, SetupSFXM.XM, SUM(票据开票数据.金额) as "
    "JE,  "
    "Sum(Case When 票据开票数据.税额 Is Null Then 票据开票数据.金额 Else 票据开票数据.金额-票据开票数据.税额 "
    "End) "
    "As SR  FROM  票据  INNER JOIN 票据开票数据 ON 票据.ID = 票据开票数据.票据id  Inner Join 设置管理处 On "
    "票据.开票部门编号 = 设置管理处.对应部门代号 Inner Join SetupSFXM ON 票据开票数据.收费项目代号 = "
    "SetupSFXM.DH "
    "WHERE 设置管理处.GYD_DH = '{office}'  AND (Convert(char(8),票据.开票日期,112) Between '{first}' and "
    "'{last}')  And (Convert(char(8),收款日期,112) > '{last}' Or (收款日期 Is Null And 预开 = 1)) And "
    "票据.退票日期 IS NULL   And 票据.作废日期 IS NULL  And 票据.内换日期 IS NULL  Group BY "
    "设置管理处.GYD_DH,设置管理处.GYD_NAME, SetupSFXM.DH,SetupSFXM.XM Order By DH";

// Column 3 or 5 of a data row: empty for NULL or 0, else the cents.
std::string MoneyCell(const Field& f) {
    if (f.IsNull() || f.Value().AsNumber() == 0) return {};
    return Format(f.Value().AsNumber(), "0.00");
}

} // namespace

void frm预开票汇总表::RunSummary() {
    OfficeInList.clear();
    for (int i = 0; i < List2.ListCount(); ++i) {
        if (!List2.Selected(i)) continue;
        const std::string entry = List2.List(i);
        OfficeInList += (OfficeInList.empty() ? "'" : ",'") + entry.substr(0, entry.find(' ')) + "'";
    }
    if (OfficeInList.empty()) {
        dialogs_.MsgBox("请至少勾选一个管理处！", kReportMessageTitle, vbInformation);
        List2.SetFocus();
        return;
    }
    StatusBar1.Panels(7).SetText("请稍候，正在进行统计...");

    TheScreen().SetMousePointer(kPointerHourglass);
    Picture3.SetLeft(static_cast<int>(CLng((ScaleWidth() - Picture3.Width()) / 2.0)));
    Picture3.SetTop(static_cast<int>(CLng((ScaleHeight() - Picture3.Height()) / 2.0)));
    Picture3.SetVisible(true);
    Picture3.ZOrder(0);
    FlexGrid& g = MSFlexGrid1;
    g.SetRows(1);
    dialogs_.Yield();
    g.SetRows(1);
    g.SetRedraw(false);

    session_.DbConnection->CommandTimeout = 0;
    const std::string first = Format(DTPicker3.Value(), "YYYYMMDD");
    const std::string last = Format(DTPicker4.Value(), "YYYYMMDD");
    for (int i = 0; i < List2.ListCount(); ++i) {
        if (!List2.Selected(i)) continue;
        // Code and name come from the entry; a name with a blank keeps its first word only.
        const std::string entry = List2.List(i);
        const std::vector<std::string> pieces = Split(entry.substr(0, entry.find("【")), " ");
        const std::string officeCode = pieces[0];
        const std::string officeName = pieces.size() > 1 ? pieces[1] : std::string();

        Recordset rs = session_.DbConnection->OpenRecordset(
            FillStatement(kSummarySql, {{"office", officeCode}, {"first", first}, {"last", last}}));
        double sums[3] = {0, 0, 0};
        for (; !rs.Eof(); rs.MoveNext()) WriteSummaryRow(rs, officeCode, officeName, sums);
        if (sums[0] == 0) {
            g.SetRows(g.Rows() + 1);
            g.SetRow(g.Rows() - 1);
            g.SetTextMatrix(g.Row(), 0, std::to_string(g.Row() - 1));
            g.SetTextMatrix(g.Row(), 1, officeName);
        }
        AddClosingRow("小计", officeCode, sums, kSubtotalFill);
    }

    g.SetRedraw(false);
    // The totals are the sums of the subtotal texts shown.
    double totals[3] = {0, 0, 0};
    for (int r = 1; r < g.Rows(); ++r) {
        if (g.TextMatrix(r, 1) != "小计") continue;
        for (int k = 0; k < 3; ++k) totals[k] += Val(g.TextMatrix(r, 3 + k));
    }
    AddClosingRow("合计", "", totals, kTotalFill);

    g.SetRedraw(true);
    Picture3.SetVisible(false);
    StatusBar1.Panels(7).SetText("统计结束！");
    dialogs_.MsgBox("统计结束！", kReportMessageTitle, vbInformation);
    TheScreen().SetMousePointer(kPointerDefault);
}

void frm预开票汇总表::WriteSummaryRow(const Recordset& rs, const std::string& officeCode,
                                      const std::string& officeName, double sums[3]) {
    FlexGrid& g = MSFlexGrid1;
    g.SetRows(g.Rows() + 1);
    g.SetRow(g.Rows() - 1);
    const int r = g.Row();
    g.SetTextMatrix(r, 0, std::to_string(r));
    g.SetTextMatrix(r, 1, officeName);
    const Field item = rs.Fields("XM");
    g.SetTextMatrix(r, 2, item.IsNull() ? std::string() : item.Value().AsText());
    g.SetTextMatrix(r, 3, MoneyCell(rs.Fields("Je")));
    g.SetTextMatrix(r, 5, MoneyCell(rs.Fields("sR")));
    const double amount = Val(g.TextMatrix(r, 3));
    g.SetTextMatrix(r, 4, amount == 0 ? std::string() : Format(amount - Val(g.TextMatrix(r, 5)), "0.00"));
    for (int k = 0; k < 3; ++k) sums[k] += Val(g.TextMatrix(r, 3 + k));
    g.SetCol(6);
    g.SetText("明细");
    g.SetCellForeColor(kLinkColour);
    g.SetTextMatrix(r, 7, rs.Fields("DH").Value().AsText());
    g.SetTextMatrix(r, 8, officeCode);
    FitSummaryWidths();
}

// The 小计 row of an office (its code in the last column, 明细 in blue) or the 合计 row.
void frm预开票汇总表::AddClosingRow(const std::string& caption, const std::string& officeCode,
                                    const double sums[3], std::uint32_t fill) {
    FlexGrid& g = MSFlexGrid1;
    g.SetRows(g.Rows() + 1);
    g.SetRow(g.Rows() - 1);
    const int r = g.Row();
    g.SetTextMatrix(r, 0, std::to_string(r - 1));
    g.SetTextMatrix(r, 1, caption);
    for (int k = 0; k < 3; ++k) g.SetTextMatrix(r, 3 + k, Format(sums[k], "0.00"));
    if (!officeCode.empty()) {
        g.SetCol(6);
        g.SetText("明细");
        g.SetCellForeColor(kLinkColour);
        g.SetTextMatrix(r, 8, officeCode);
    }
    for (int c = 1; c <= 6; ++c) {
        g.SetCol(c);
        g.SetCellBackColor(fill);
    }
    FitSummaryWidths();
}

// Widths follow the row just written and never shrink, not even on a new run.
void frm预开票汇总表::FitSummaryWidths() {
    FlexGrid& g = MSFlexGrid1;
    for (int c = 0; c <= g.Cols() - 3; ++c) {
        const int wanted = TextWidth(g.TextMatrix(g.Row(), c)) + 90;
        if (wanted > g.ColWidth(c)) g.SetColWidth(c, wanted);
    }
}

void frm预开票汇总表::MSFlexGrid1_Click() {
    FlexGrid& g = MSFlexGrid1;
    if (g.Rows() == 1) return;
    if (g.TextMatrix(g.Row(), 1) == "合计") return;
    if (g.Col() == 6 && g.Text() == "明细") MSFlexGrid1_DblClick();

    const int r = g.Row();
    // After a shorter new run the marked row number may be gone; then there is nothing to clear.
    if (SummaryMarkedRow != 0 && SummaryMarkedRow < g.Rows()) {
        g.SetRow(SummaryMarkedRow);
        for (int c = 0; c < g.Cols(); ++c) {
            g.SetCol(c);
            g.SetCellBackColor(kColorWindow);
        }
    }
    SummaryMarkedRow = r;
    g.SetRow(r);
    for (int c = 0; c <= g.Cols() - 3; ++c) {
        g.SetCol(c);
        g.SetCellBackColor(kMarkFill);
    }
    g.SetRedraw(true);
}

void frm预开票汇总表::MSFlexGrid1_DblClick() {
    if (MSFlexGrid1.TextMatrix(MSFlexGrid1.Row(), 6) == "明细") OpenDetailPanel();
}

} // namespace quillon
