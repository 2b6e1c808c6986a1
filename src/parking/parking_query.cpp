// The parking-fee detail's statements and the reading of its bills into ResultRows.
#include "base/vb_text.h"
#include "db/connection.h"
#include "model/payment_catalog.h"
#include "parking/parking_window.h"
#include "workbench/detail_fields.h"
#include "workbench/statement_text.h"

namespace quillon {

namespace {

// Parking items invoiced in the range; the report itself then goes by the collection date.
constexpr const char* kChargeItemSql =
    "Select distinct 收费项目代号, setupsfxm.税率,XM , 收费类别,显示名称 From 票据 inner join 票据开票数据 "
    "on 票据.票据编号  =票据开票数据.票据编号 And 票据.入库单编号 = 票据开票数据.入库单编号 inner join "
    "票据入库单 on 票据.入库单编号 =票据入库单.入库单编号 inner join setupsfxm on 收费项目代号=dh where "
    "CONVERT(char(8),开票日期,112) between '{start}' and '{end}' and 作废日期 is null  And 开票部门编号 "
    "='{dept}' And 收费类别 Like '%停车%' group by  setupsfxm.税率,收费项目代号,xm,收费类别,显示名称 order "
    "by 收费项目代号";

// Per bill and item, collected in the range: the property company's share taken line by line,
// the whole net amount, the tax. Only here is 作废日期 tested, so a voided bill has no columns.
constexpr const char* kItemSub =
    "Select sum((票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 0 Else 票据开票数据.税额 End)) "
    "* "
    "{share}) as {name}WY, sum(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 0 Else "
    "票据开票数据.税额 End)) As {name}KFS, sum(票据开票数据.税额) as {tax}, 票据开票数据.票据编号 From "
    "票据开票数据 Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and 票据开票数据.票据编号 = "
    "票据.票据编号 Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号 Where 作废日期 Is "
    "Null  And Convert(Char(8),收款日期,112) Between '{start}' And '{end}' And 收费项目代号 in ({code}) And "
    "开票部门编号 ='{dept}' group by 票据开票数据.票据编号 ";

// Six fixed fields; 票据.金额 is selected and never read: the money comes from the items.
constexpr const char* kBillSelect =
    "Select 票据.票据编号 ,票据.入库单编号 ,  收款日期, 票据.金额, 收款方式, 交易订单号 ";
constexpr const char* kItemFields = " ,B{i}.{name}KFS ,B{i}.{name}WY , B{i}.{tax}";
constexpr const char* kBillFrom =
    " From 票据 inner join 票据入库单 on 票据.入库单编号 =票据入库单.入库单编号";
constexpr const char* kItemJoin = " LEFT Join ({sub}) B{i} On 票据.票据编号 = B{i}.票据编号";
// Replaced bills stay out; a bill must carry one of the items and be collected in the range.
// The order keeps the bills of one batch and date together for the grouping.
constexpr const char* kBillWhere =
    " Where 票据.开票部门编号 ='{dept}' And 内换日期 Is Null And ({orList}) And "
    "Convert(Char(8),收款日期,112) Between '{start}' And '{end}' Order by "
    "收款日期, 票据.入库单编号, 票据.票据编号, 金额 ";

constexpr int kFirstAmountField = 6;

} // namespace

std::string ParkingChargeItemQuery(const std::string& start, const std::string& end,
                                   const std::string& dept) {
    return FillStatement(kChargeItemSql, {{"start", start}, {"end", end}, {"dept", dept}});
}

std::string ParkingDetailQuery(const ChargeItemColumns& items, const SplitRatioTable& split,
                               const std::string& start, const std::string& end, const std::string& dept) {
    // The sub-selects come first: each reads its share from the split table, and a share that
    // is no number fails the run before anything else is built.
    std::vector<std::string> subs;
    for (const ChargeItem& item : items) {
        const std::string share = split.ShareText(item.CodeLiteral);
        subs.push_back(FillStatement(kItemSub, {{"share", share},
                                                {"name", item.ColumnName},
                                                {"tax", item.TaxColumnName},
                                                {"start", start},
                                                {"end", end},
                                                {"code", item.CodeLiteral},
                                                {"dept", dept}}));
    }
    std::string sql = kBillSelect;
    std::string orList;
    for (std::size_t k = 0; k < items.size(); ++k) {
        const ChargeItem& item = items[k];
        sql += FillStatement(
            kItemFields,
            {{"i", std::to_string(k + 1)}, {"name", item.ColumnName}, {"tax", item.TaxColumnName}});
        if (k > 0) orList += " Or ";
        orList += item.ColumnName + "KFS Is Not Null";
    }
    sql += kBillFrom;
    for (std::size_t k = 0; k < items.size(); ++k)
        sql += FillStatement(kItemJoin, {{"sub", subs[k]}, {"i", std::to_string(k + 1)}});
    return sql +
           FillStatement(kBillWhere, {{"dept", dept}, {"orList", orList}, {"start", start}, {"end", end}});
}

std::string frm停车费明细表New::ChargeItemQuery() const {
    return ParkingChargeItemQuery(StartText(), EndText(), DeptCode);
}

void frm停车费明细表New::DropResultRows() {
    ResultRows.emplace(1);
}

std::optional<int> frm停车费明细表New::ResultRowCount() const {
    if (!ResultRows) return std::nullopt;
    return static_cast<int>(ResultRows->size()) - 1;
}

bool frm停车费明细表New::RunParkingQuery(const std::string& dept,
                                         const std::string& /*office: no statement uses it*/) {
    Connection& conn = Db();
    conn.CommandTimeout = 0;
    const std::string sql = ParkingDetailQuery(ChargeItems, SplitTable, StartText(), EndText(), dept);
    Recordset rs = conn.OpenRecordset(sql);
    std::vector<ParkingRow> rows(1);
    std::string groupKey;
    ItemAmountReader amountReader(kFirstAmountField, AmountColumnCount);
    std::vector<double> amounts;
    for (; !rs.Eof(); rs.MoveNext()) {
        amountReader.Read(rs, amounts);
        const Field mode = rs.Fields("收款方式");
        AddBillToGroup(rows, groupKey, rs.Fields("入库单编号").Value().AsText(),
                       rs.Fields("收款日期").Value().AsText(), rs.Fields("票据编号").Value().AsText(),
                       mode.IsNull() ? std::string() : Trim(mode.Value().AsText()),
                       !rs.Fields("交易订单号").IsNull(), amounts);
    }
    ResultRows = std::move(rows);
    if (ResultRows->size() == 1) {
        ShowNoResultLabel();
        return false;
    }
    conn.CommandTimeout = 0;
    AppendParkingClosingRows(*ResultRows, AmountColumnCount, LoadPaymentModes(conn));
    FinishResult(static_cast<int>(ResultRows->size()) - 1);
    return true;
}

} // namespace quillon
