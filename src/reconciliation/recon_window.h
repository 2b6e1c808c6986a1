// recon_window.h — reconciliation layer: the monthly check of invoices against the finance
// hand-over for one department, in its two windows frm票据核对表 and frm票据核对表New. One class
// holds the shared handlers and routines; what the windows do differently is their ReconForm.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "controls/combo_box.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/panel.h"
#include "reconciliation/recon_form.h"
#include "shell/app_session.h"
#include "workbench/report_frame.h"

namespace quillon {

// One charge item found in the period: a 财务交账 column of the grid.
struct ChargeCategory {
    std::string CategoryCode; // 收费项目代号 in single quotes; empty when NULL
    std::string CategoryName; // XM without "(", ")", "（", "）", "%": column alias and header
    double CategoryRate = 0;  // 税率 in percent, two decimals; 0 when NULL
};

inline constexpr const char* kReconCaption = "增值税开票票据核对表";
inline constexpr std::uint32_t kSubtotalColor = 0xC0E0FF; // 小计 cells
inline constexpr std::uint32_t kTotalColor = 0xFFC0C0;    // 合计 cells

class ReconWindow : public ReportForm {
public:
    ReconWindow(const ReconForm& form, AppSession& session, Dialogs& dialogs);

    const ReconForm& Traits() const { return form_; }

    // Condition panel (Picture2): the department list, then Picture6 with the criteria.
    Label Label4;  // "增值税票据核对统计条件"
    Label Label5;  // "选择部门"
    ListBox List1; // one line per department and office: "0101 一号管理处【G01】"
    Panel Picture6;
    Label Label6;    // "设定开票年月"
    ComboBox Combo1; // year
    ComboBox Combo2; // first month, "01".."12"
    Label Label7;    // "月至 "
    ComboBox Combo3; // last month
    Label Label2;    // the check's formula

    // Handlers.
    void Form_Load() override;
    void Form_Resize() override;
    void List1_Click();
    void Command1_Click();
    void Command3_Click();
    void Command2_Click();

    // The printed result: the title band's caption over the grid, the period under it.
    bool PrintResult(const std::function<void(const PrintJob&)>& print) override;
    // The period as the criteria show it: "2024年 01月 至 12月".
    std::string PeriodLine() const;

    // The columns after the categories, for N categories.
    int SubtotalCol(int n) const { return form_.firstCategoryCol + n; }
    int CollectedCol(int n) const { return form_.firstCategoryCol + n + 1; }
    int UncollectedCol(int n) const { return form_.firstCategoryCol + n + 2; }
    int VerdictCol(int n) const { return form_.firstCategoryCol + n + 3; }

protected:
    // Grid shape (at load, and with the period's categories).
    void InitReconGrid();
    void LayoutReconGrid();

    // The run's steps.
    void LoadChargeCategories(const std::string& DeptCode, const std::string& OfficeCode);
    void FillInvoiceMatrix(const std::string& ItemCodeList, const std::string& DeptCode,
                           const std::string& OfficeCode);
    void FillCollectedPreInvoices(const std::string& ItemCodeList, const std::string& DeptCode,
                                  const std::string& OfficeCode);
    void FillUncollectedPreInvoices(const std::string& ItemCodeList, const std::string& DeptCode,
                                    const std::string& OfficeCode);
    void WriteVerdicts();
    void AddGrandTotalRow();

    // The workbook of the grid as it stands (recon_export.cpp).
    void ExportReconWorkbook();

private:
    void RunReconciliation();
    // N, the upper bound of ChargeCategories: error 9 while the array does not exist, as in a
    // window whose first extraction failed.
    int CategoryCount() const;
    // The months of the run, read anew from Combo2 and Combo3 at each step.
    int FirstMonth() const;
    int LastMonth() const;
    std::string MonthKey(int month) const;
    std::string MonthStatement(const std::string& month, const std::string& ItemCodeList,
                               const std::string& DeptCode, const std::string& OfficeCode) const;
    // One pre-invoice figure per month into the 小计 row of that month.
    void FillAdjustment(const char* statement, const char* field, int column, const std::string& ItemCodeList,
                        const std::string& DeptCode);
    void ShowQueryError(long number, const std::string& description);
    void SetCellColor(int row, int col, std::uint32_t color);
    void SetHeader(int col, const char* top, const char* bottom, int width);

    const ReconForm& form_;
    AppSession& session_;

    // Window fields: slot 0 of ChargeCategories is never used; no array until a first extraction.
    std::optional<std::vector<ChargeCategory>> ChargeCategories;
    std::string AllTypeCodes;
    std::string SpecialTypeCodes;
    std::string OrdinaryTypeCodes;
    std::string ThirdTypeCodes;
};

// The menu's 开票票据核对表: 全电发票 as the third block.
class frm票据核对表 : public ReconWindow {
public:
    frm票据核对表(AppSession& session, Dialogs& dialogs) : ReconWindow(kReconForm, session, dialogs) {}
};

// The later variant, reached from no menu: 收据 as the third block.
class frm票据核对表New : public ReconWindow {
public:
    frm票据核对表New(AppSession& session, Dialogs& dialogs) : ReconWindow(kReconFormNew, session, dialogs) {}
};

} // namespace quillon
