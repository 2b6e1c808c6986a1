// The body of the reconciliation grid: the period's charge items, then per month one row per tax
// rate with the invoiced amounts by kind and the money collected per item, and a 小计 row.
#include <numeric>

#include "base/vb_error.h"
#include "base/vb_number.h"
#include "db/connection.h"
#include "reconciliation/recon_window.h"
#include "workbench/charge_items.h"
#include "workbench/statement_text.h"

namespace quillon {

namespace {

constexpr const char* kChargeCategorySql =
    "Select distinct 收费项目代号, 税控盘收费项目设置.税率,XM , 收费类别,显示名称 From 票据 inner join "
    "票据开票数据 on 票据.票据编号  =票据开票数据.票据编号 And 票据.入库单编号 = 票据开票数据.入库单编号 "
    "inner join 票据入库单 on 票据.入库单编号 =票据入库单.入库单编号 inner join 票据类型 on "
    "票据入库单.票据类型编号 =票据类型.票据类型代号 inner join setupsfxm on 收费项目代号=dh Inner Join "
    "税控盘收费项目设置 ON setupsfxm.dh = 税控盘收费项目设置.DH  where CONVERT(char(6),开票日期,112) "
    "between '{year}{m1}' and '{year}{m2}' and 作废日期 is null  And 开票部门编号 ='{dept}' And "
    "票据类型代号 In ({all}) And 税控盘收费项目设置.管理处 ='{office}' group by  "
    "税控盘收费项目设置.税率,收费项目代号,xm,收费类别,显示名称 order by 收费项目代号";

// Q1: special invoices of the month, by the rate of the office's charge-item setting.
constexpr const char* kSpecialInvoiceSql =
    "Select SUM(票据开票数据.金额) as 专用发票, SUM(Case When 票据开票数据.税额 Is Null Then 0 Else "
    "票据开票数据.税额 End) as 专发税额, 税控盘收费项目设置.税率 From 票据开票数据 Inner Join 票据  on "
    "票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号 Inner Join "
    "票据入库单 "
    "on 票据开票数据.入库单编号 =票据入库单.入库单编号 Inner Join 票据类型 on 票据入库单.票据类型编号 "
    "=票据类型.票据类型代号 Inner Join 税控盘收费项目设置 on 收费项目代号=dh Where "
    "CONVERT(char(6),开票日期,112) ='{month}' And 收费项目代号 in ({items}) And 作废日期 is null And "
    "开票部门编号 ='{dept}' And 税控盘收费项目设置.管理处 ='{office}' And 票据类型代号 IN ({special}) group "
    "by 税控盘收费项目设置.税率";

// Q2: ordinary invoices, the same shape.
constexpr const char* kOrdinaryInvoiceSql =
    "Select SUM(票据开票数据.金额) as 普通发票,  SUM(Case When 票据开票数据.税额 Is Null Then 0 Else "
    "票据开票数据.税额 End) as 普发税额, 税控盘收费项目设置.税率 From 票据开票数据 Inner Join 票据  on "
    "票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号 Inner Join "
    "票据入库单 "
    "on 票据开票数据.入库单编号 =票据入库单.入库单编号 Inner Join 票据类型 on 票据入库单.票据类型编号 "
    "=票据类型.票据类型代号 Inner Join 税控盘收费项目设置 on 收费项目代号=dh Where "
    "CONVERT(char(6),开票日期,112) ='{month}' And 收费项目代号 in ({items}) And 作废日期 is null And "
    "开票部门编号 ='{dept}' And 税控盘收费项目设置.管理处 ='{office}' And 票据类型代号 IN ({ordinary}) "
    "group by 税控盘收费项目设置.税率";

// Qi: money collected in the month on one charge item: paid this month and issued this month or
// earlier. A line paid before its issue month counts in no month.
constexpr const char* kCategorySql =
    "Select SUM(票据开票数据.金额) as {name}, 税控盘收费项目设置.税率 From 票据开票数据 Inner Join 票据  on "
    "票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号 Inner Join "
    "票据入库单 "
    "on 票据开票数据.入库单编号 =票据入库单.入库单编号 Inner Join 票据类型 on 票据入库单.票据类型编号 "
    "=票据类型.票据类型代号 Inner Join 税控盘收费项目设置 on 收费项目代号=dh Where "
    "((CONVERT(char(6),开票日期,112) ='{month}' And CONVERT(char(6),收款日期,112) ='{month}') Or "
    "(CONVERT(char(6),收款日期 ,112) ='{month}' And CONVERT(char(6),开票日期,112) < "
    "CONVERT(char(6),收款日期,112))) And 收费项目代号 in ({code}) And 作废日期 is null and 收款日期 is not "
    "null And 开票部门编号 ='{dept}' And 税控盘收费项目设置.管理处 ='{office}' And 票据类型代号 IN ({all}) "
    "group by 税控盘收费项目设置.税率";

// Select items and joins of a category. An item of rate 0 shows only on the row of rate 0 and
// its table may also join a row without rate.
constexpr const char* kCategoryItem = " ,B{i}.{name}";
constexpr const char* kZeroRateCategoryItem =
    " , CASE WHEN (A.税率 IS not NULL And A.税率>0) THEN 0 ELSE B{i}.{name} END AS {name}";
constexpr const char* kCategoryJoin = " LEFT Join ({Qi}) B{i} On A.税率= B{i}.税率";
constexpr const char* kZeroRateCategoryJoin =
    " LEFT Join ({Qi}) B{i} On (A.税率= B{i}.税率 Or B{i}.税率 Is Null)";

// A money field as the grid shows it: "0.00" for NULL.
std::string MoneyText(const Field& field) {
    return field.IsNull() ? "0.00" : Format(field.Value().AsNumber(), "0.00");
}

// A net amount: amount less tax, NULL tested on the amount alone.
std::string NetText(const Field& amount, const Field& tax) {
    return amount.IsNull() ? "0.00" : Format(amount.Value().AsNumber() - tax.Value().AsNumber(), "0.00");
}

} // namespace

void ReconWindow::LoadChargeCategories(const std::string& DeptCode, const std::string& OfficeCode) {
    try {
        const std::string sql = FillStatement(kChargeCategorySql, {{"year", Combo1.Text()},
                                                                   {"m1", Combo2.Text()},
                                                                   {"m2", Combo3.Text()},
                                                                   {"dept", DeptCode},
                                                                   {"all", AllTypeCodes},
                                                                   {"office", OfficeCode}});
        Connection& conn = *session_.DbConnection;
        conn.CommandTimeout = 0;
        Recordset rs = conn.OpenRecordset(sql);
        // Replaced only once the statement has opened: a failed extraction keeps the former run's.
        ChargeCategories.emplace(1);
        for (; !rs.Eof(); rs.MoveNext()) {
            ChargeItem item = ReadChargeItem(rs);
            ChargeCategories->push_back(
                {std::move(item.CodeLiteral), std::move(item.ColumnName), item.TaxRate});
        }
        LayoutReconGrid();
    } catch (const VbError& e) {
        ShowQueryError(e.Number, e.Description);
    }
}

std::string ReconWindow::MonthStatement(const std::string& month, const std::string& ItemCodeList,
                                        const std::string& DeptCode, const std::string& OfficeCode) const {
    const std::string q1 = FillStatement(kSpecialInvoiceSql, {{"month", month},
                                                              {"items", ItemCodeList},
                                                              {"dept", DeptCode},
                                                              {"office", OfficeCode},
                                                              {"special", SpecialTypeCodes}});
    const std::string q2 = FillStatement(kOrdinaryInvoiceSql, {{"month", month},
                                                               {"items", ItemCodeList},
                                                               {"dept", DeptCode},
                                                               {"office", OfficeCode},
                                                               {"ordinary", OrdinaryTypeCodes}});
    const std::string q3 = FillStatement(form_.thirdStatement, {{"month", month},
                                                                {"items", ItemCodeList},
                                                                {"dept", DeptCode},
                                                                {"office", OfficeCode},
                                                                {"third", ThirdTypeCodes}});
    const auto& categories = *ChargeCategories;
    const int n = CategoryCount();

    std::string sql = form_.monthHead;
    for (int i = 1; i <= n; ++i) {
        const std::string slot = std::to_string(i);
        sql += FillStatement(categories[i].CategoryRate == 0 ? kZeroRateCategoryItem : kCategoryItem,
                             {{"i", slot}, {"name", categories[i].CategoryName}});
    }
    sql += " From 税控盘收费项目设置 A";
    sql += FillStatement(form_.invoiceJoins, {{"Q1", q1}, {"Q2", q2}, {"Q3", q3}});
    for (int i = 1; i <= n; ++i) {
        const std::string slot = std::to_string(i);
        const std::string qi = FillStatement(kCategorySql, {{"name", categories[i].CategoryName},
                                                            {"month", month},
                                                            {"code", categories[i].CategoryCode},
                                                            {"dept", DeptCode},
                                                            {"office", OfficeCode},
                                                            {"all", AllTypeCodes}});
        sql += FillStatement(categories[i].CategoryRate == 0 ? kZeroRateCategoryJoin : kCategoryJoin,
                             {{"Qi", qi}, {"i", slot}});
    }
    sql += form_.monthFilter;
    sql += " order by  S税率";
    return sql;
}

// Traps nothing: a statement that fails here (a category name that is no valid alias, say)
// ends the process through the click.
void ReconWindow::FillInvoiceMatrix(const std::string& ItemCodeList, const std::string& DeptCode,
                                    const std::string& OfficeCode) {
    FlexGrid& g = MSFlexGrid1;
    Connection& conn = *session_.DbConnection;
    const int n = CategoryCount();
    const int first = form_.firstCategoryCol;
    const int subtotal = SubtotalCol(n);
    std::vector<double> MonthSums(g.Cols(), 0.0);

    for (int m = FirstMonth(); m <= LastMonth(); ++m) {
        const std::string month = MonthKey(m);
        const std::string sql = MonthStatement(month, ItemCodeList, DeptCode, OfficeCode);
        conn.CommandTimeout = 0;
        Recordset rs = conn.OpenRecordset(sql);
        std::fill(MonthSums.begin(), MonthSums.end(), 0.0);

        for (; !rs.Eof(); rs.MoveNext()) {
            const Field rate = rs.Fields("S税率");
            if (rate.Value().AsNumber() == 100) continue; // a setting row without rate
            g.SetRows(g.Rows() + 1);
            const int r = g.Rows() - 1;
            g.SetRow(r);
            g.SetTextMatrix(r, 0, std::to_string(r - 1));
            g.SetTextMatrix(r, 1, month);
            g.SetTextMatrix(r, 2, rate.Value().AsText());
            for (int c : {0, 1, 2}) g.SetColAlignment(c, flexAlignCenterCenter);

            g.SetTextMatrix(r, 3, NetText(rs.Fields("专用发票"), rs.Fields("专发税额")));
            g.SetTextMatrix(r, 4, MoneyText(rs.Fields("专发税额")));
            g.SetTextMatrix(r, 5, NetText(rs.Fields("普通发票"), rs.Fields("普发税额")));
            g.SetTextMatrix(r, 6, MoneyText(rs.Fields("普发税额")));
            if (form_.thirdTaxField) {
                g.SetTextMatrix(r, 7,
                                NetText(rs.Fields(form_.thirdNetField), rs.Fields(form_.thirdTaxField)));
                g.SetTextMatrix(r, 8, MoneyText(rs.Fields(form_.thirdTaxField)));
            } else {
                g.SetTextMatrix(r, 7, MoneyText(rs.Fields(form_.thirdNetField)));
            }

            // Category i is read at ordinal i+5 in both forms. With the seven-field head of
            // frm票据核对表 that is one field early: its first category column shows 全电税额 and
            // its last category is read by nothing. The verdict is computed on these cells.
            for (int i = 1; i <= n; ++i) g.SetTextMatrix(r, first + i - 1, MoneyText(rs.Fields(i + 5)));
            for (int i = 1; i <= n; ++i) {
                const double sum = Val(g.TextMatrix(r, subtotal)) + Val(g.TextMatrix(r, first + i - 1));
                g.SetTextMatrix(r, subtotal, Format(sum, "0.00"));
            }
            for (int c = 3; c <= subtotal; ++c) MonthSums[c] += Val(g.TextMatrix(r, c));
        }

        // A month whose invoices net to exactly nothing gets no 小计 row.
        const double invoiced = std::accumulate(MonthSums.begin() + 3, MonthSums.begin() + first, 0.0);
        if (invoiced != 0) {
            g.SetRows(g.Rows() + 1);
            const int r = g.Rows() - 1;
            g.SetRow(r);
            g.SetTextMatrix(r, 0, std::to_string(r - 1));
            g.SetTextMatrix(r, 1, month);
            g.SetTextMatrix(r, 2, "小计");
            for (int c = 3; c <= subtotal; ++c) {
                g.SetTextMatrix(r, c, Format(MonthSums[c], "0.00"));
                SetCellColor(r, c, kSubtotalColor);
            }
        }
        rs.Close();
    }
}

} // namespace quillon
