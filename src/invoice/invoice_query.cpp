// The invoice detail's statements. The main statement has two forms: the union of ordinary and
// replacing bills (replacing bills with zero money), or, with a maintenance fund among the
// items, one statement whose derived tables are grouped and joined on both keys.
#include "invoice/invoice_window.h"
#include "workbench/statement_text.h"

namespace quillon {

namespace {

// A bill counts when invoiced in the range, or paid in it and invoiced on an earlier day.
constexpr const char* kPeriod =
    " And (Convert(Char(8),开票日期,112) Between '{start}' And '{end}' Or (Convert(Char(8),收款日期,112) "
    "Between "
    "'{start}' And '{end}' And CONVERT(char(8),开票日期,112)<CONVERT(char(8),收款日期,112)))";

// Voided bills take part: the test on 作废日期 is always true.
constexpr const char* kChargeItemSql =
    "Select distinct 收费项目代号, setupsfxm.税率,XM , 收费类别,显示名称 From 票据 Inner Join 票据开票数据 "
    "on "
    "票据.票据编号  =票据开票数据.票据编号 And 票据.入库单编号 = 票据开票数据.入库单编号 Inner Join "
    "票据入库单 on "
    "票据.入库单编号 =票据入库单.入库单编号 Inner Join setupsfxm on 收费项目代号=dh Where  开票部门编号 "
    "='{dept}'{period} And (作废日期 Is Null Or 作废日期 Is Not Null) group by  "
    "setupsfxm.税率,收费项目代号,xm,收费类别,显示名称 order by 收费项目代号";

// Of every department: exchanges anywhere in the period.
constexpr const char* kExchangedSql =
    "Select 内换票据编号 From 票据 Where 内换日期 is Not Null And 内换票据编号 is Not Null{period}";

constexpr const char* kSubTail =
    " From 票据开票数据 Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and "
    "票据开票数据.票据编号 = "
    "票据.票据编号 Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号 Inner Join "
    "票据类型 on "
    "票据入库单.票据类型编号 =票据类型.票据类型代号 Where  (作废日期 Is Null Or 作废日期 Is Not "
    "Null){period} And "
    "收费项目代号 in ({code}) And 开票部门编号 ='{dept}' And 票据类型代号 In ({billTypes})";

constexpr const char* kOrdinaryFields = " ,B{i}.{name} , B{i}.{tax}";
constexpr const char* kParkingFields = " ,B{i}.{name}KFS ,B{i}.{name}WY , B{i}.{tax}";
constexpr const char* kBillFrom =
    " From 票据 inner join 票据入库单 on 票据.入库单编号 =票据入库单.入库单编号 inner join 票据类型 on "
    "票据入库单.票据类型编号 =票据类型.票据类型代号";
constexpr const char* kBillWhere =
    " Where 票据.开票部门编号 ='{dept}' And 票据类型代号 In ({billTypes}) And ({orList})";

// One statement (or half of one): what differs between the union's halves and the fund form.
struct StatementShape {
    const char* select;       // the fixed fields
    const char* ordinaryHead; // sub-select head of an ordinary item
    const char* parkingHead;  // of a parking item
    const char* fundHead;     // of the item named exactly 维修基金; nullptr: as an ordinary item
    const char* groupBy;      // after the sub-select's tail
    const char* join;         // the derived table's join
    const char* tail;         // after the period test
};

// The bills that replaced nothing.
constexpr StatementShape kOrdinaryHalf = {
    .select =
        "Select 票据.票据编号 ,票据.入库单编号 , 票据类型.票据类型 ,开票日期, 收款日期, 作废日期, 票据.金额, "
        "收款方式, 付款人, 地址, 票据.被换票票据编号  , 票据.内换日期, 票据.内换票据编号 ",
    .ordinaryHead =
        "Select SUM(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 0 Else 票据开票数据.税额 "
        "End)) as {name} ,SUM(票据开票数据.税额) as {tax}, 票据开票数据.票据编号",
    .parkingHead =
        "Select SUM(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 0 Else 票据开票数据.税额 "
        "End)) * {share} as {name}WY, SUM(票据开票数据.金额 - (Case When 票据开票数据.税额 Is Null Then 0 "
        "Else 票据开票数据.税额 End))  As {name}KFS, SUM(票据开票数据.税额) as {tax}, 票据开票数据.票据编号",
    .fundHead = nullptr,
    .groupBy = " Group by 票据开票数据.票据编号",
    .join = " LEFT Join ({sub}) B{i} On 票据.票据编号 = B{i}.票据编号",
    .tail = " And 被换票票据编号 is null",
};

// The replacing bills: both branches of each Case give 金额, so their money is 0 (not NULL, so
// they still pass the presence test); only a parking item keeps its real tax.
constexpr StatementShape kReplacingHalf = {
    .select =
        "Select 票据.票据编号 ,票据.入库单编号 , 票据类型.票据类型 ,开票日期, 收款日期, 作废日期, 票据.金额, "
        "收款方式, 付款人, 地址, 票据.被换票票据编号 , 票据.内换日期, 票据.内换票据编号 ",
    .ordinaryHead =
        "Select SUM(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 票据开票数据.金额 Else "
        "票据开票数据.金额 End)) as {name} ,SUM(0) as {tax}, 票据开票数据.票据编号",
    .parkingHead =
        "Select SUM(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 票据开票数据.金额 Else "
        "票据开票数据.金额 End)) * {share} as {name}WY, SUM(票据开票数据.金额 - (Case When 票据开票数据.税额 "
        "Is Null Then 票据开票数据.金额 Else 票据开票数据.金额 End))  As {name}KFS, SUM(票据开票数据.税额) "
        "as "
        "{tax}, 票据开票数据.票据编号",
    .fundHead = nullptr,
    .groupBy = " Group by 票据开票数据.票据编号",
    .join = " LEFT Join ({sub}) B{i} On 票据.票据编号 = B{i}.票据编号",
    .tail = " And 被换票票据编号 is not null",
};

// With a maintenance fund: no union, no 内换 fields, derived tables on both keys.
constexpr StatementShape kFundStatement = {
    .select =
        "Select 票据.票据编号 ,票据.入库单编号 , 票据类型.票据类型 ,开票日期, 收款日期, 作废日期, 票据.金额, "
        "收款方式, 付款人, 地址, 票据.被换票票据编号 ",
    .ordinaryHead =
        "Select SUM(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 0 Else 票据开票数据.税额 "
        "End)) as {name} ,SUM(票据开票数据.税额) as {tax}, 票据开票数据.票据编号, 票据开票数据.入库单编号",
    .parkingHead =
        "Select SUM(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 0 Else 票据开票数据.税额 "
        "End)) * {share} as {name}WY, SUM(票据开票数据.金额 - (Case When 票据开票数据.税额 Is Null Then 0 "
        "Else 票据开票数据.税额 End))  As {name}KFS, SUM(票据开票数据.税额) as {tax}, 票据开票数据.票据编号  "
        ", 票据开票数据.入库单编号",
    .fundHead =
        "Select  Sum(票据开票数据.金额 - (Case When 票据开票数据.税额 Is Null Then 0 Else 票据开票数据.税额 "
        "End)) as {name} , Sum(票据开票数据.税额) as {tax}, 票据开票数据.票据编号 , 票据开票数据.入库单编号",
    .groupBy = " Group by 票据开票数据.票据编号, 票据开票数据.入库单编号",
    .join = " LEFT Join ({sub}) B{i} On 票据.票据编号 = B{i}.票据编号 And 票据.入库单编号 = B{i}.入库单编号",
    .tail = " Order by 票据.开票日期,票据编号",
};

constexpr const char* kUnionOrder = " Order by 票据.开票日期,票据编号";

std::string PeriodText(const std::string& start, const std::string& end) {
    return FillStatement(kPeriod, {{"start", start}, {"end", end}});
}

struct Criteria {
    const std::string& start;
    const std::string& end;
    const std::string& dept;
    const std::string& billTypes;
};

std::string BuildStatement(const StatementShape& shape, const ChargeItemColumns& items,
                           const SplitRatioTable& split, const Criteria& c) {
    const std::string period = PeriodText(c.start, c.end);
    std::string select = shape.select;
    std::string joins;
    std::string orList;
    for (std::size_t k = 0; k < items.size(); ++k) {
        const ChargeItem& item = items[k];
        const std::string i = std::to_string(k + 1);
        const bool parking = item.IsParking();
        select += FillStatement(parking ? kParkingFields : kOrdinaryFields,
                                {{"i", i}, {"name", item.ColumnName}, {"tax", item.TaxColumnName}});
        std::string head;
        if (parking)
            head = FillStatement(shape.parkingHead, {{"share", split.ShareText(item.CodeLiteral)},
                                                     {"name", item.ColumnName},
                                                     {"tax", item.TaxColumnName}});
        else
            head = FillStatement(shape.fundHead && item.ColumnName == "维修基金" ? shape.fundHead
                                                                                 : shape.ordinaryHead,
                                 {{"name", item.ColumnName}, {"tax", item.TaxColumnName}});
        const std::string sub = head +
                                FillStatement(kSubTail, {{"period", period},
                                                         {"code", item.CodeLiteral},
                                                         {"dept", c.dept},
                                                         {"billTypes", c.billTypes}}) +
                                shape.groupBy;
        joins += FillStatement(shape.join, {{"sub", sub}, {"i", i}});
        if (k > 0) orList += " Or ";
        orList += item.ColumnName + (parking ? "KFS Is Not Null" : " Is Not Null");
    }
    return select + kBillFrom + joins +
           FillStatement(kBillWhere, {{"dept", c.dept}, {"billTypes", c.billTypes}, {"orList", orList}}) +
           period + shape.tail;
}

} // namespace

std::string InvoiceChargeItemQuery(const std::string& start, const std::string& end,
                                   const std::string& dept) {
    return FillStatement(kChargeItemSql, {{"dept", dept}, {"period", PeriodText(start, end)}});
}

std::string ExchangedNumberQuery(const std::string& start, const std::string& end) {
    return FillStatement(kExchangedSql, {{"period", PeriodText(start, end)}});
}

std::string InvoiceDetailQuery(const ChargeItemColumns& items, const SplitRatioTable& split,
                               const std::string& start, const std::string& end, const std::string& dept,
                               const std::string& billTypes) {
    const Criteria c{start, end, dept, billTypes};
    return BuildStatement(kOrdinaryHalf, items, split, c) + " Union All " +
           BuildStatement(kReplacingHalf, items, split, c) + kUnionOrder;
}

std::string FundInvoiceQuery(const ChargeItemColumns& items, const SplitRatioTable& split,
                             const std::string& start, const std::string& end, const std::string& dept,
                             const std::string& billTypes) {
    return BuildStatement(kFundStatement, items, split, {start, end, dept, billTypes});
}

} // namespace quillon
