// summary_window.h — summary layer: the pre-invoice summary window: offices with check boxes and
// an invoice-date range on the left, one statement per ticked office filling the summary grid,
// a detail panel over the grid for the invoice lines of a row, and a workbook of either list.
#pragma once

#include <cstdint>
#include <string>

#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/command_button.h"
#include "controls/date_picker.h"
#include "controls/dialogs.h"
#include "controls/flex_grid.h"
#include "controls/form.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/panel.h"
#include "controls/progress_bar.h"
#include "controls/status_bar.h"
#include "controls/tree_view.h"

namespace quillon {

struct AppSession;
class Recordset;

class frm预开票汇总表 : public Form {
public:
    frm预开票汇总表(AppSession& session, Dialogs& dialogs);

    // Top band and the criteria panel at the left.
    Panel Picture4;
    Label Label7_0; // title
    Panel Picture5;
    Label Label7_1, Label7_2, Label7_3; // "开票日期范围", "从", "至"
    DatePicker DTPicker3, DTPicker4;
    Label Label7_4;  // "管理处列表"
    CheckBox Check3; // "全选"
    ListBox List2;

    // The summary list and the detail panel that takes its place while open.
    Panel Frame2;
    FlexGrid MSFlexGrid1;
    CommandButton Command2; // "…", hidden for good
    Panel Frame3;
    Label Label8;
    FlexGrid MSFlexGrid2;
    CommandButton Command3; // "关闭"
    CommandButton Command4; // "输出EXCEL"
    ProgressBar ProgressBar2;

    // Bottom strip: 统计, 输出EXCEL, 退出, 打印.
    Panel Picture2;
    CommandButton Command1_0, Command1_1, Command1_2, Command1_3;
    ProgressBar ProgressBar1;

    Panel Picture3; // busy panel
    Label Label5;
    StatusBar StatusBar1;
    CommonDialogState CommonDialog1;

    // Panels that nothing shows. DTPicker1 and DTPicker2 keep their stored date for good; the
    // ledger builders read them and Combo2, and the detail workbook prints them.
    Panel Frame1;
    CheckBox Check1;
    ListBox List1;
    CheckBox Check2;
    TreeView TreeView1;
    Label Label1;
    Panel Picture1;
    Label Label6, Label4, Label2, Label3;
    ComboBox Combo4, Combo2;
    DatePicker DTPicker1, DTPicker2;

    // State kept between clicks.
    std::string OfficeInList;
    int SummaryMarkedRow = 0;
    int DetailMarkedRow = 0;
    // The two exchange statements the ledger builders make and never send.
    std::string ExchangedStatement, ReplacingStatement;

    void Form_Activate() override;
    void Command1_Click(int Index);
    void Check3_Click();
    void Check1_Click();
    void Check2_Click();
    void TreeView1_NodeCheck(TreeNode& Node);
    void Picture2_Resize();

    void RunSummary();
    void MSFlexGrid1_Click();
    void MSFlexGrid1_DblClick();

    void OpenDetailPanel();
    void Command2_Click();
    void Command3_Click();
    void BuildInvoiceDetail();
    void MSFlexGrid2_Click();
    void BuildOwnerLedgerDetail();
    void BuildRegistrationLedgerDetail();
    void BuildSpaceLedgerDetail();

    void ExportSummary();
    void Command4_Click();
    void PrintSummary();

    // The summary's title and date line, as the workbook and the print preview show them.
    std::string SummaryTitle() const;
    std::string SummaryDateLine() const;
    // The printed result: the summary grid under its title and date line, as 打印 shows it.
    bool PrintResult(const std::function<void(const PrintJob&)>& print) override;

protected:
    void Form_Load() override;
    void Form_Resize() override;

private:
    void PlaceControls();
    void WriteSummaryRow(const Recordset& rs, const std::string& officeCode, const std::string& officeName,
                         double sums[3]);
    void AddClosingRow(const std::string& caption, const std::string& officeCode, const double sums[3],
                       std::uint32_t fill);
    void FitSummaryWidths();
    void LayOutDetailPanel();
    void FillDetailGrid(const std::string& sql);
    void BuildLedgerDetail(const char* statement, const char* exchangedSelect, const char* replacingSelect);
    void WriteSummaryWorkbook();
    void WriteDetailWorkbook();

    AppSession& session_;
    Dialogs& dialogs_;
};

} // namespace quillon
