// recon_form.h — reconciliation layer: everything the two reconciliation windows do differently,
// in one table. frm票据核对表 has a 全电发票 block (net and tax) as its third block and reads only
// invoice types of 类别 '发票'; frm票据核对表New has a 收据 block (amount only) and reads all types.
#pragma once

#include "model/bill_type_catalog.h"

namespace quillon {

struct ReconHeaderColumn {
    const char* top;    // header row 0
    const char* bottom; // header row 1
    int width;          // twips
};

// A merge of the workbook's header row 4 over sheet columns first..last; a span that reaches
// over the categories ends N columns further.
struct ReconSheetSpan {
    int firstCol;
    int lastCol;
    bool overCategories = false;
};

struct ReconForm {
    const char* formName;
    BillTypeWindow billTypes; // statement of the type lists, and what the fourth list holds
    const char* checkFormula; // Label2, the identity the report checks

    // Grid: columns 0-2 row number, month, rate; 3-4 专用发票; 5-6 普通发票; then the third
    // block; then the 财务交账 category columns from firstCategoryCol on.
    int thirdBlockCols;
    int firstCategoryCol; // 7 + thirdBlockCols
    ReconHeaderColumn thirdBlock[2];

    // The month statement's pieces that differ (the shared ones stand in recon_matrix.cpp).
    const char* thirdStatement; // Q3: the third block's invoices of the month, by rate
    const char* monthHead;      // select list ahead of the category columns
    const char* invoiceJoins;   // the joins of Q1, Q2, Q3 onto the rates of 税控盘收费项目设置 A
    const char* monthFilter;    // which rate rows count
    const char* thirdNetField;  // column 7: that field less thirdTaxField (when there is one)
    const char* thirdTaxField;  // column 8, or nullptr

    // Appended to both pre-invoice adjustment statements.
    const char* adjustmentCondition;

    // Workbook: the row-4 header merges beyond the first three columns, and the closing line.
    // The New form merges 4..7 into one cell, so 增值税普通发票 is lost under 增值税专用发票.
    ReconSheetSpan headerSpans[4];
    const char* closingLine;
};

inline constexpr ReconForm kReconForm = {
    .formName = "frm票据核对表",
    .billTypes = BillTypeWindow::Reconciliation,
    .checkFormula = "核对:(专用发票+普通发票+全电发票=财务交账-当月收预开票+当月未收预开票)",
    .thirdBlockCols = 2,
    .firstCategoryCol = 9,
    .thirdBlock = {{"全电发票（含电子发票）", "金额", 1300}, {"全电发票（含电子发票）", "税额", 1200}},
    .thirdStatement =
        "Select SUM(票据开票数据.金额) as 全电发票,  SUM(Case When 票据开票数据.税额 Is Null Then 0 Else "
        "票据开票数据.税额 End) as 全电税额, 税控盘收费项目设置.税率 From 票据开票数据 Inner Join 票据  on "
        "票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号 Inner Join "
        "票据入库单 on 票据开票数据.入库单编号 = 票据入库单.入库单编号 Inner Join 票据类型 on "
        "票据入库单.票据类型编号 =票据类型.票据类型代号 Inner Join 税控盘收费项目设置 on 收费项目代号=dh "
        "Where CONVERT(char(6),开票日期,112) ='{month}' And 收费项目代号 in ({items}) And 作废日期 is null "
        "And 开票部门编号 ='{dept}' And 税控盘收费项目设置.管理处 ='{office}' And 票据类型代号 In ({third}) "
        "group by 税控盘收费项目设置.税率",
    .monthHead = "Select Distinct CASE WHEN A.税率 IS NULL THEN 100 else A.税率 END AS S税率 , A1.专用发票, "
                 "A1.专发税额, A2.普通发票, A2.普发税额, A3.全电发票, A3.全电税额",
    .invoiceJoins = " LEFT Join ({Q1}) A1 On A.税率 = A1.税率 LEFT Join ({Q2}) A2 On A.税率 = A2.税率 "
                    "LEFT Join ({Q3}) A3 On A.税率 = A3.税率",
    .monthFilter = " Where (专用发票 Is Not Null Or 普通发票 Is Not Null Or A3.全电发票 Is Not Null)",
    .thirdNetField = "全电发票",
    .thirdTaxField = "全电税额",
    .adjustmentCondition = " And 内换日期 Is Null",
    .headerSpans = {{4, 5}, {6, 7}, {8, 9}, {10, 10, true}},
    .closingLine =
        " 核对结果: 相符 ( 专用发票 + 普通发票 + 全电发票 = 财务交账 - 当月收预开票 + 当月未收预开票 )",
};

inline constexpr ReconForm kReconFormNew = {
    .formName = "frm票据核对表New",
    .billTypes = BillTypeWindow::ReconciliationNew,
    .checkFormula = "核对:(专用发票+普通发票+收据=财务交账-当月收预开票+当月未收预开票)",
    .thirdBlockCols = 1,
    .firstCategoryCol = 8,
    .thirdBlock = {{"收据", "金额", 1200}, {nullptr, nullptr, 0}},
    // The special-invoice statement with the receipt head; both pieces keep a blank behind them,
    // so "税率  From" and "is null  And" carry two.
    .thirdStatement =
        "Select SUM(票据开票数据.金额) as 收据, 税控盘收费项目设置.税率  From 票据开票数据 Inner Join 票据  "
        "on "
        "票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号 Inner Join "
        "票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号 Inner Join 票据类型 on "
        "票据入库单.票据类型编号 =票据类型.票据类型代号 Inner Join 税控盘收费项目设置 on 收费项目代号=dh "
        "Where CONVERT(char(6),开票日期,112) ='{month}' And 收费项目代号 in ({items}) And 作废日期 is null  "
        "And 开票部门编号 ='{dept}' And 税控盘收费项目设置.管理处 ='{office}' And 票据类型代号 IN ({third}) "
        "group by 税控盘收费项目设置.税率",
    .monthHead = "Select Distinct CASE WHEN A.税率 IS NULL THEN 100 else A.税率 END AS S税率 , A1.专用发票, "
                 "A1.专发税额, A2.普通发票, A2.普发税额, CASE WHEN A.税率 IS not NULL THEN NULL ELSE A3.收据 "
                 "End As S收据 ",
    .invoiceJoins = " LEFT Join ({Q1}) A1 On A.税率=A1.税率 LEFT Join ({Q2}) A2 On A.税率=A2.税率 "
                    "LEFT Join ({Q3}) A3 On (A.税率=A3.税率 Or A3.税率 Is Null)",
    .monthFilter = " Where (专用发票 Is Not Null Or 普通发票 Is Not Null Or A3.收据 Is Not Null)",
    .thirdNetField = "S收据",
    .thirdTaxField = nullptr,
    .adjustmentCondition = "",
    .headerSpans = {{4, 7}, {9, 9, true}, {0, 0}, {0, 0}},
    .closingLine =
        " 核对结果: 相符 ( 专用发票 + 普通发票 + 收据 = 财务交账 - 当月收预开票 + 当月未收预开票 )",
};

} // namespace quillon
