// deptrate_window.h — deptrate layer: the department tax-rate summary window: department tree,
// date range, one row per ticked department with three columns per tax rate, 合计, workbook.
#pragma once

#include <string>
#include <vector>

#include "controls/check_box.h"
#include "controls/date_picker.h"
#include "controls/label.h"
#include "controls/tree_view.h"
#include "deptrate/tax_rate.h"
#include "workbench/report_frame.h"

namespace quillon {

struct AppSession;

// One row of the department query.
struct DeptRec {
    std::string DeptCode;
    std::string DeptName;   // "\r\n" removed
    std::string ParentCode; // empty when the department has no parent link
};

class frm部门开票分税率统计表 : public ReportForm {
public:
    frm部门开票分税率统计表(AppSession& session, Dialogs& dialogs);

    // Condition panel; the frame's controls (grid, buttons, wait panel …) come from ReportForm.
    TreeView TreeView1;
    CheckBox Check1; // "全选"
    DatePicker DTPicker1, DTPicker2;
    Label Label2; // export notice, hidden at rest
    Label Label4; // "选择部门"
    Label Label5; // "开票日期范围"
    Label Label6; // "至"

    // State the window keeps between clicks. Element 0 of both arrays stays empty.
    std::vector<DeptRec> DeptRecs;
    std::vector<TaxRate> TaxRates;
    int RateColCount = 0;
    std::string CurDeptCode, CurDeptName;

    void Command3_Click();
    void Command2_Click();
    void Check1_Click();
    void TreeView1_NodeCheck(TreeNode& Node);

    // The printed result: the title band's caption over the grid, the period under it.
    bool PrintResult(const std::function<void(const PrintJob&)>& print) override;
    // The workbook's period line: " 开票日期：yyyy-mm-dd 至 yyyy-mm-dd".
    std::string PeriodLine() const;

protected:
    void Form_Load() override;
    void Form_Resize() override;

private:
    void LoadDeptTree();
    void AddChildDepts(const std::string& ParentCode);
    void LoadTaxRates();
    void InitGridCols();
    void BuildRateGrid();
    void QueryDeptRow(const std::string& DeptCode, const std::string& DeptName);
    void AddTotalRow();
    void ExportDeptSummary();

    AppSession& session_;
};

} // namespace quillon
