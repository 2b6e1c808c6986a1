// The bridge between invoices issued and money handed over: per month the money collected on
// earlier invoices and the invoices not yet paid, then the month's difference and the 合计 row.
#include <numeric>

#include "base/vb_error.h"
#include "base/vb_number.h"
#include "db/connection.h"
#include "reconciliation/recon_window.h"
#include "workbench/statement_text.h"

namespace quillon {

namespace {

// 当月收预开票: paid this month on invoices of an earlier month. The alias has no 票 at its end.
constexpr const char* kCollectedPreInvoiceSql =
    "Select SUM(票据开票数据.金额) 当月收预开 From 票据开票数据 Inner Join 票据  on 票据开票数据.入库单编号  "
    "=票据.入库单编号 and 票据开票数据.票据编号  =票据.票据编号 Inner Join 票据入库单 on "
    "票据开票数据.入库单编号 =票据入库单.入库单编号 Inner Join 票据类型 on 票据入库单.票据类型编号 "
    "=票据类型.票据类型代号 Where CONVERT(char(6),收款日期 ,112) ='{month}' And "
    "CONVERT(char(6),开票日期,112) < CONVERT(char(6),收款日期,112) And 作废日期 is null and 收款日期 is not "
    "null And 收费项目代号 in ({items}) And 开票部门编号 ='{dept}' And 票据类型代号 IN ({all})";

// 当月未收预开票: issued this month and not paid in it.
constexpr const char* kUncollectedPreInvoiceSql =
    "Select SUM(票据开票数据.金额) 当月未收预开票 From 票据开票数据 Inner Join 票据  on "
    "票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号  =票据.票据编号 Inner Join "
    "票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号 Inner Join 票据类型 on "
    "票据入库单.票据类型编号 =票据类型.票据类型代号 Where CONVERT(char(6),开票日期 ,112) ='{month}' And "
    "(收款日期 Is Null Or CONVERT(char(6),收款日期,112) > CONVERT(char(6),开票日期,112)) And 作废日期 is "
    "null And 收费项目代号 in ({items}) And 开票部门编号 ='{dept}' And 票据类型代号 IN ({all})";

} // namespace

void ReconWindow::ShowQueryError(long number, const std::string& description) {
    dialogs_.MsgBox(Str(static_cast<double>(number)) + description, kReportMessageTitle, vbInformation);
}

// Neither adjustment joins the charge-item settings, so neither asks for the office.
void ReconWindow::FillCollectedPreInvoices(const std::string& ItemCodeList, const std::string& DeptCode,
                                           const std::string& /*OfficeCode*/) {
    FillAdjustment(kCollectedPreInvoiceSql, "当月收预开", CollectedCol(CategoryCount()), ItemCodeList,
                   DeptCode);
}

void ReconWindow::FillUncollectedPreInvoices(const std::string& ItemCodeList, const std::string& DeptCode,
                                             const std::string& /*OfficeCode*/) {
    FillAdjustment(kUncollectedPreInvoiceSql, "当月未收预开票", UncollectedCol(CategoryCount()), ItemCodeList,
                   DeptCode);
}

void ReconWindow::FillAdjustment(const char* statement, const char* field, int column,
                                 const std::string& ItemCodeList, const std::string& DeptCode) {
    FlexGrid& g = MSFlexGrid1;
    try {
        Connection& conn = *session_.DbConnection;
        for (int m = FirstMonth(); m <= LastMonth(); ++m) {
            const std::string month = MonthKey(m);
            const std::string sql =
                FillStatement(
                    statement,
                    {{"month", month}, {"items", ItemCodeList}, {"dept", DeptCode}, {"all", AllTypeCodes}}) +
                form_.adjustmentCondition;
            conn.CommandTimeout = 0;
            Recordset rs = conn.OpenRecordset(sql);
            const Field sum = rs.Fields(field);
            const std::string text = sum.IsNull() ? "0.00" : Format(sum.Value().AsNumber(), "0.00");
            // Only a month with a 小计 row takes the figure.
            for (int r = 2; r < g.Rows(); ++r) {
                if (g.TextMatrix(r, 1) == month && g.TextMatrix(r, 2) == "小计") {
                    g.SetTextMatrix(r, column, text);
                    SetCellColor(r, column, kSubtotalColor);
                }
            }
            rs.Close();
        }
    } catch (const VbError& e) {
        // The remaining months keep their cells; the run goes on to the verdict.
        ShowQueryError(e.Number, e.Description);
    }
}

void ReconWindow::WriteVerdicts() {
    FlexGrid& g = MSFlexGrid1;
    const int n = CategoryCount();
    const int first = form_.firstCategoryCol;
    for (int r = 2; r < g.Rows(); ++r) {
        if (g.TextMatrix(r, 2) != "小计") continue;
        // Invoiced - 财务交账 + 当月收预开票 - 当月未收预开票, on the two-decimal cell texts.
        double d = 0;
        for (int c = 3; c < first; ++c) d += Val(g.TextMatrix(r, c));
        d = d - Val(g.TextMatrix(r, SubtotalCol(n))) + Val(g.TextMatrix(r, CollectedCol(n))) -
            Val(g.TextMatrix(r, UncollectedCol(n)));
        g.SetTextMatrix(r, VerdictCol(n), d == 0 ? "0.00" : Format(d, "0.00"));
        SetCellColor(r, VerdictCol(n), kSubtotalColor);
    }
}

void ReconWindow::AddGrandTotalRow() {
    FlexGrid& g = MSFlexGrid1;
    const int cols = g.Cols();
    const int first = form_.firstCategoryCol;
    // Up to the 当月未收预开票 column: the verdict and 备注 stay empty in the 合计 row.
    const int last = cols - 3;
    std::vector<double> GrandSums(cols, 0.0);
    for (int r = 2; r < g.Rows(); ++r) {
        if (g.TextMatrix(r, 2) != "小计") continue;
        for (int c = 3; c <= last; ++c) GrandSums[c] += Val(g.TextMatrix(r, c));
    }
    const double invoiced = std::accumulate(GrandSums.begin() + 3, GrandSums.begin() + first, 0.0);
    if (invoiced == 0) return;

    g.SetRows(g.Rows() + 1);
    const int r = g.Rows() - 1;
    g.SetRow(r);
    g.SetTextMatrix(r, 0, std::to_string(r - 1));
    g.SetTextMatrix(r, 1, "合计"); // in column 1, where the export looks for it
    for (int c = 3; c <= last; ++c) {
        g.SetTextMatrix(r, c, Format(GrandSums[c], "0.00"));
        SetCellColor(r, c, kTotalColor);
    }
}

} // namespace quillon
