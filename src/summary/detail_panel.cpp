// The detail panel over the summary list: opening and closing it, the invoice lines of a summary
// row, the rows, sums and 合计 that every builder of the panel writes alike, and its row mark.
#include "base/vb_number.h"
#include "controls/screen.h"
#include "controls/text_width.h"
#include "db/connection.h"
#include "shell/app_session.h"
#include "summary/period_text.h"
#include "summary/summary_window.h"
#include "workbench/report_frame.h"
#include "workbench/statement_text.h"

namespace quillon {
namespace {

constexpr std::uint32_t kTotalFill = 0xFFC0C0;
constexpr std::uint32_t kMarkFill = 0xE0E0E0;

// The same conditions as the summary's statement, so an item row's detail sums to that row; the
// detail of a 小计 row has no join to SetupSFXM and so also lists lines of items not set up.
constexpr const char* kInvoiceDetailSql =
    "SELECT 票据.入库单编号, 票据.票据编号, 票据.付款人, 票据开票数据.项目, 票据开票数据.摘要, "
    "票据开票数据.金额,  "
    "Case When 票据开票数据.税额 Is Null Then 票据开票数据.金额 Else 票据开票数据.金额-票据开票数据.税额 End "
    "As "
    "SR,  票据.收款日期, 票据.收款人, 票据.开票人,票据.开票日期 FROM 票据  Inner Join 票据开票数据 ON "
    "票据.ID = "
    "票据开票数据.票据id  Inner Join 设置管理处 On 票据.开票部门编号=设置管理处.对应部门代号 WHERE "
    "设置管理处.GYD_DH = '{office}'  AND (Convert(char(8),票据.开票日期,112) Between '{first}' and '{last}') "
    " "
    "And (Convert(char(8),收款日期,112) > '{last}' Or (收款日期 Is Null And 预开 = 1)) And 票据.退票日期 IS "
    "NULL   And 票据.作废日期 IS NULL  And 票据.内换日期 IS NULL {items} Order By 入库单编号,票据编号,付款人";

std::string TextOrEmpty(const Field& f) {
    return f.IsNull() ? std::string() : f.Value().AsText();
}

std::string MoneyOrEmpty(const Field& f) {
    return f.IsNull() ? std::string() : Format(f.Value().AsNumber(), "#0.00");
}

// Dates come as dates or as ISO text; the ledger views give an empty text for 开票日期.
std::string DateOrEmpty(const Field& f) {
    return f.IsNull() ? std::string() : Format(f.Value().AsText(), "yyyy-mm-dd");
}

double NumberOrZero(const Field& f) {
    return f.IsNull() ? 0.0 : f.Value().AsNumber();
}

} // namespace

void frm预开票汇总表::LayOutDetailPanel() {
    Frame3.Move(Frame2.Left(), Frame2.Top(), Frame2.Width(), Frame2.Height());
    Command3.SetLeft(Frame3.Width() - Command3.Width() - 150);
    Command4.SetLeft(Command3.Left() - Command4.Width() - 100);
}

void frm预开票汇总表::OpenDetailPanel() {
    if (MSFlexGrid1.TextMatrix(MSFlexGrid1.Row(), 6) != "明细") return;
    Picture2.SetEnabled(false);
    LayOutDetailPanel();
    ProgressBar2.SetWidth(Frame3.Width() - 2 * ProgressBar2.Left());
    MSFlexGrid2.SetRows(1);
    MSFlexGrid2.SetWidth(Frame3.Width() - 150);
    MSFlexGrid2.SetHeight(Frame3.Height() - Command3.Height() - 400);
    Frame3.SetVisible(true);
    Frame3.ZOrder(0);
    dialogs_.Yield();
    // No trap: a failed statement leaves the panel open and the hourglass on.
    TheScreen().SetMousePointer(kPointerHourglass);
    BuildInvoiceDetail();
    TheScreen().SetMousePointer(kPointerDefault);
}

void frm预开票汇总表::Command2_Click() {
    LayOutDetailPanel();
    MSFlexGrid2.SetRows(1);
    MSFlexGrid2.SetWidth(Frame3.Width() - 150);
    MSFlexGrid2.SetHeight(Frame3.Height() - Command3.Height() - 400);
    Frame3.SetVisible(true);
    Frame3.ZOrder(0);
    dialogs_.Yield();
    TheScreen().SetMousePointer(kPointerHourglass);
    TheScreen().SetMousePointer(kPointerDefault);
}

void frm预开票汇总表::Command3_Click() {
    MSFlexGrid2.SetRows(1);
    Frame3.SetVisible(false);
    Picture2.SetEnabled(true);
}

void frm预开票汇总表::BuildInvoiceDetail() {
    const FlexGrid& s = MSFlexGrid1;
    const int r = s.Row();
    const std::string office = s.TextMatrix(r, s.Cols() - 1);
    if (office.empty()) return;
    std::string caption, items;
    if (s.TextMatrix(r, 1) == "小计") {
        caption = s.TextMatrix(r - 1, 1);
    } else {
        caption = s.TextMatrix(r, 1) + " " + s.TextMatrix(r, 2);
        items = " And 票据开票数据.收费项目代号 in ('" + s.TextMatrix(r, s.Cols() - 2) + "')";
    }
    Label8.SetCaption(caption);
    FillDetailGrid(FillStatement(kInvoiceDetailSql, {{"office", office},
                                                     {"first", Format(DTPicker3.Value(), "YYYYMMDD")},
                                                     {"last", Format(DTPicker4.Value(), "YYYYMMDD")},
                                                     {"items", items}}));
}

// Rows, sums, 合计 and merging of the panel's list, from any of its statements.
void frm预开票汇总表::FillDetailGrid(const std::string& sql) {
    StatusBar1.Panels(7).SetText("请稍候，正在统计明细...");
    FlexGrid& g = MSFlexGrid2;
    g.SetRedraw(false);
    g.SetRows(1);
    session_.DbConnection->CommandTimeout = 0;
    Recordset rs = session_.DbConnection->OpenRecordset(sql);

    double amount = 0, tax = 0, income = 0;
    for (; !rs.Eof(); rs.MoveNext()) {
        g.SetRows(g.Rows() + 1);
        g.SetRow(g.Rows() - 1);
        const int r = g.Row();
        const Field summary = rs.Fields("摘要");
        const std::string cells[] = {
            std::to_string(r),
            TextOrEmpty(rs.Fields("入库单编号")),
            TextOrEmpty(rs.Fields("票据编号")),
            TextOrEmpty(rs.Fields("付款人")),
            TextOrEmpty(rs.Fields("项目")),
            summary.IsNull() ? std::string() : PeriodText(summary.Value().AsText()),
            MoneyOrEmpty(rs.Fields("金额")),
            std::string(), // 税额, from the two money cells beside it
            MoneyOrEmpty(rs.Fields("sR")),
            DateOrEmpty(rs.Fields("收款日期")),
            TextOrEmpty(rs.Fields("收款人")),
            TextOrEmpty(rs.Fields("开票人")),
            DateOrEmpty(rs.Fields("开票日期")),
        };
        for (int c = 0; c < 13; ++c) g.SetTextMatrix(r, c, cells[c]);
        g.SetTextMatrix(r, 7, Format(Val(cells[6]) - Val(cells[8]), "0.00"));

        amount += NumberOrZero(rs.Fields("金额"));
        tax += Val(g.TextMatrix(r, 7));
        income += NumberOrZero(rs.Fields("sR"));
        for (int c = 1; c <= g.Cols() - 2; ++c) {
            const int wanted = TextWidth(g.TextMatrix(r, c)) + 95;
            if (wanted > g.ColWidth(c)) g.SetColWidth(c, wanted);
        }
    }
    if (g.Rows() > 1) {
        g.SetRows(g.Rows() + 1);
        g.SetRow(g.Rows() - 1);
        const int r = g.Row();
        g.SetTextMatrix(r, 1, "合计");
        g.SetTextMatrix(r, 6, Format(amount, "#0.00"));
        g.SetTextMatrix(r, 7, Format(tax, "#0.00"));
        g.SetTextMatrix(r, 8, Format(income, "#0.00"));
        for (int c = 1; c <= g.Cols() - 1; ++c) {
            g.SetCol(c);
            g.SetCellBackColor(kTotalFill);
        }
    }
    g.SetRedraw(true);
    StatusBar1.Panels(7).SetText("统计结束!");
    g.SetMergeCells(flexMergeRestrictColumns);
    for (int c = 0; c <= 2; ++c) g.SetMergeCol(c, true);
    g.SetColWidth(g.Cols() - 1, 0);
}

void frm预开票汇总表::MSFlexGrid2_Click() {
    FlexGrid& g = MSFlexGrid2;
    // A failure here passes on to the next step, as the event did.
    const auto step = [](const std::function<void()>& f) { ApplyIgnoringFailure(f); };
    if (g.Rows() == 1 || g.TextMatrix(g.Row(), 1) == "合计") return;
    step([&] { g.SetRedraw(false); });
    const int r = g.Row();
    if (DetailMarkedRow != 0) {
        step([&] { g.SetRow(DetailMarkedRow); });
        for (int c = 2; c <= g.Cols() - 1; ++c)
            step([&] {
                g.SetCol(c);
                g.SetCellBackColor(kColorWindow);
            });
    }
    DetailMarkedRow = r;
    step([&] { g.SetRow(r); });
    for (int c = 1; c <= g.Cols() - 1; ++c)
        step([&] {
            g.SetCol(c);
            g.SetCellBackColor(kMarkFill);
        });
    step([&] { g.SetRedraw(true); });
}

} // namespace quillon
