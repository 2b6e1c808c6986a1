// detail_report_form.h — workbench layer: the window shape and the two-stage run that the three
// detail reports (pre-invoice, parking fee, invoice) share. Command3 extracts the period's charge
// items into ChargeItems and the split table; Command6 runs the report's statement into its
// ResultRows, which the pager shows page by page; Command2 writes them to a workbook. What the
// three windows do differently stands in their DetailReportTexts, one table each, and in the
// few routines each implements: its statements, its grid header, its rows and its sheet.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "controls/date_picker.h"
#include "controls/image.h"
#include "controls/text_box.h"
#include "workbench/charge_items.h"
#include "workbench/detail_workbook.h"
#include "workbench/grid_pager.h"
#include "workbench/report_frame.h"
#include "workbench/split_ratio_table.h"

namespace quillon {

class Connection;

struct DetailReportTexts {
    const char* formName;
    const char* title;          // window caption and Label1(0) at load; the title's tail on List1 click
    const char* panelCaption;   // over the department list
    const char* dateLabel;      // over DTPicker1
    const char* extractWait;    // Label3 during Command3
    const char* noItemsMessage; // Command3 found no charge item
    const char* runWait;        // Label3 during Command6
    const char* exportedMessage;
    // The department check of Command3: SelCount = 0, or ListIndex = -1.
    bool checkBySelCount;
    // Command6 lays the columns out again, so the header shows the percentages as typed since
    // Command3; without it the captions keep those of the extraction.
    bool rebuildHeaderAtRun;
    // A failed extraction shows Str(number) + description; without it the failure is untrapped.
    bool extractionTrapped;
};

inline constexpr const char* kNoResultMessage = "无满足统计条件的数据，请重新设置统计条件！";
inline constexpr const char* kExportingText = "正在导出数据，请稍等......";

class DetailReportForm : public ReportForm {
public:
    // `connection` is the session's own pointer, read at each use.
    DetailReportForm(const DetailReportTexts& texts, const std::unique_ptr<Connection>& connection,
                     Dialogs& dialogs);

    const DetailReportTexts& Texts() const { return texts_; }

    // Condition panel: the department list fills it.
    Label Label4; // panel caption
    Label Label5; // "选择部门"
    ListBox List1;
    // Criteria band over the grid.
    Label Label6; // the date range's caption
    DatePicker DTPicker1_0, DTPicker1_1;
    Label Label7; // "至"
    Label Label8; // "设置停车费分账比例"
    FlexGrid MSFlexGrid2;
    TextBox txtGRD;
    CommandButton Command6; // "开始统计"
    // Pager bar.
    Panel Picture8;
    Image Image2_0, Image2_1, Image2_2, Image2_3; // 首页, 上一页, 下一页, 尾页
    Label Label21;                                // "转到"
    TextBox Text6;
    Label Label19; // page label
    Label Label2;  // export notice over the grid, hidden at rest

    // State kept between clicks.
    std::string DeptCode, OfficeCode;
    std::string BillTypeInList;
    ChargeItemColumns ChargeItems;
    int AmountColumnCount = 0;
    GridPager Pager;
    SplitRatioTable SplitTable;

    void Form_Resize() override;
    void List1_Click();
    void Command3_Click();
    void Command6_Click();
    void Command2_Click();

    // The printed result: every page's rows in the grid at once, under the title band's caption
    // and the date range; the grid shows its own page again afterwards, whatever print did.
    bool PrintResult(const std::function<void(const PrintJob&)>& print) override;

protected:
    // --- what each report does its own way
    // At load, before any item is known.
    virtual void InitGridHeader() = 0;
    // Sets AmountColumnCount and lays out MSFlexGrid1 for ChargeItems.
    virtual void BuildChargeItemColumns() = 0;
    // The statement that finds the period's charge items.
    virtual std::string ChargeItemQuery() const = 0;
    // Runs the report's statement into a new ResultRows; true when rows were found. A failure
    // propagates; the run then calls DropResultRows.
    virtual bool RunReportQuery() = 0;
    virtual void DropResultRows() = 0;
    // Slot 0 not counted; nothing before the first run.
    virtual std::optional<int> ResultRowCount() const = 0;
    // Fills the grid's current row from ResultRows[r].
    virtual void WriteResultRow(int r) = 0;
    // The workbook of ResultRows, under CommonDialog1.FileName.
    virtual void ExportDetailWorkbook() = 0;

    // --- shared routines
    // Form_Load after the status panels: dates, split table, header, department and type lists.
    void LoadDetailWindow();
    void ExtractChargeItems();
    // DTPicker1(0) and (1) as "yyyymmdd", read afresh by each statement.
    std::string StartText() const;
    std::string EndText() const;
    // The writer of a detail workbook, under CommonDialog1.FileName: sheet rows 1 to 5 and the
    // header merges of the shape, the export notice shown while writeRows fills the body (C the
    // grid's columns, n its money columns, U the last row of ResultRows), the notice hidden, the
    // file saved and the report's success message; a failure is shown with its number.
    struct DetailSheetShape {
        std::vector<SheetSpan> ownBlocks; // header merges of the report's own columns
        int firstItemCol;                 // sheet column of the first item group
        int closingCols;                  // columns merged down both rows at the right
        bool allParking = false;          // three columns for every item
    };
    void WriteDetailWorkbook(const DetailSheetShape& shape,
                             const std::function<void(Worksheet& sheet, int C, int n, int U)>& writeRows);

    // The end of a run that found rows: page count over all rows, then the label.
    void FinishResult(int totalRows);
    // The run's answer when nothing was found: the label back to "第 00 页 共 00 页".
    void ShowNoResultLabel() { Label19.SetCaption(kEmptyPageLabel); }

    Connection& Db() const { return *connection_; }

private:
    void PlaceControls();

    const DetailReportTexts& texts_;
    const std::unique_ptr<Connection>& connection_;
};

} // namespace quillon
