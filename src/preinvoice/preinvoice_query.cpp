// The pre-invoice detail's statements and the reading of its bills into ResultRows.
#include "base/vb_number.h"
#include "base/vb_text.h"
#include "db/connection.h"
#include "model/payment_catalog.h"
#include "preinvoice/preinvoice_window.h"
#include "workbench/detail_fields.h"
#include "workbench/statement_text.h"

namespace quillon {

namespace {

// Items invoiced in the range on bills whose money had not come in by its end.
constexpr const char* kChargeItemSql =
    "Select distinct 收费项目代号, setupsfxm.税率,XM , 收费类别,显示名称 From 票据 inner join 票据开票数据 "
    "on "
    "票据.票据编号  = 票据开票数据.票据编号 And 票据.入库单编号 = 票据开票数据.入库单编号  inner join "
    "票据入库单 on "
    "票据.入库单编号 = 票据入库单.入库单编号 inner join 票据类型 on 票据入库单.票据类型编号 "
    "=票据类型.票据类型代号 "
    "inner join setupsfxm on 收费项目代号=dh where CONVERT(char(8),开票日期,112) between '{start}' and "
    "'{end}' "
    "And (convert(char(8),收款日期,112) > '{end}' Or (收款日期 is null and 预开=1) Or 收款日期 Is Null) and "
    "作废日期 is null  And 开票部门编号 ='{dept}' And 票据类型代号 In ({billTypes}) group by  "
    "setupsfxm.税率,收费项目代号,xm,收费类别,显示名称 order by 收费项目代号";

// Twelve fixed fields; 票据.金额 is selected and never read: the money comes from the items.
constexpr const char* kBillSelect = "Select 票据.票据编号 ,票据.入库单编号 , 票据类型.票据类型 ,开票日期, "
                                    "收款日期, 作废日期, 票据.金额, 收款方式, "
                                    "付款人, 地址,  内换日期 ,被换票票据编号";
constexpr const char* kOrdinaryFields = " ,B{i}.{name} , B{i}.{tax}";
constexpr const char* kParkingFields = " ,B{i}.{name}KFS ,B{i}.{name}WY , B{i}.{tax}";

// Per bill and item: the net amount (and for parking the property company's share of it) and
// the tax. Only the sub-selects test 作废日期, so a voided bill has no item columns.
constexpr const char* kOrdinaryHead = "Select SUM(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null "
                                      "Then 0 Else 票据开票数据.税额 End)) as {name} "
                                      ",SUM(票据开票数据.税额) as {tax}, 票据开票数据.票据编号";
constexpr const char* kParkingHead =
    "Select SUM(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 0 Else 票据开票数据.税额 End)) * "
    "{share} as {name}WY, SUM(票据开票数据.金额-(Case When 票据开票数据.税额 Is Null Then 0 Else "
    "票据开票数据.税额 "
    "End)) As {name}KFS, SUM(票据开票数据.税额) as {tax}, 票据开票数据.票据编号";
constexpr const char* kItemTail =
    " From 票据开票数据 Inner Join 票据  on 票据开票数据.入库单编号  =票据.入库单编号 and "
    "票据开票数据.票据编号 = "
    "票据.票据编号 Inner Join 票据入库单 on 票据开票数据.入库单编号 =票据入库单.入库单编号 Inner Join "
    "票据类型 on "
    "票据入库单.票据类型编号 =票据类型.票据类型代号 Where 作废日期 Is Null And Convert(Char(8),开票日期,112) "
    "Between "
    "'{start}' And '{end}' And (convert(char(8),收款日期,112) > '{end}' Or (收款日期 is null and 预开=1) Or "
    "收款日期 is null) And 收费项目代号 in ({code}) And 开票部门编号 ='{dept}' And 票据类型代号 In "
    "({billTypes}) "
    "Group by 票据开票数据.票据编号";

constexpr const char* kBillFrom =
    " From 票据 inner join 票据入库单 on 票据.入库单编号 =票据入库单.入库单编号 inner join 票据类型 on "
    "票据入库单.票据类型编号 =票据类型.票据类型代号";
constexpr const char* kItemJoin = " LEFT Join ({sub}) B{i} On 票据.票据编号 = B{i}.票据编号";
// Replaced bills stay out; a bill must carry one of the items; issued in the range and not paid
// by its end.
constexpr const char* kBillWhere = " Where 票据.开票部门编号 ='{dept}' And 内换日期 Is Null And ({orList}) "
                                   "And Convert(Char(8),开票日期,112) "
                                   "Between '{start}' And '{end}' And (convert(char(8),收款日期,112) > "
                                   "'{end}' Or 收款日期 is null) Order by "
                                   "票据.开票日期,票据编号";

constexpr int kFirstAmountField = 12;

} // namespace

std::string PreInvoiceChargeItemQuery(const std::string& start, const std::string& end,
                                      const std::string& dept, const std::string& billTypes) {
    return FillStatement(kChargeItemSql,
                         {{"start", start}, {"end", end}, {"dept", dept}, {"billTypes", billTypes}});
}

std::string PreInvoiceBillDetailQuery(const ChargeItemColumns& items, const SplitRatioTable& split,
                                      const std::string& start, const std::string& end,
                                      const std::string& dept, const std::string& billTypes) {
    std::string select = kBillSelect;
    std::vector<std::string> subs;
    std::string orList;
    for (std::size_t k = 0; k < items.size(); ++k) {
        const ChargeItem& item = items[k];
        const std::string i = std::to_string(k + 1);
        const std::string tail = FillStatement(kItemTail, {{"start", start},
                                                           {"end", end},
                                                           {"code", item.CodeLiteral},
                                                           {"dept", dept},
                                                           {"billTypes", billTypes}});
        if (item.IsParking()) {
            select += FillStatement(kParkingFields,
                                    {{"i", i}, {"name", item.ColumnName}, {"tax", item.TaxColumnName}});
            const std::string share = split.ShareText(item.CodeLiteral);
            subs.push_back(
                FillStatement(kParkingHead,
                              {{"share", share}, {"name", item.ColumnName}, {"tax", item.TaxColumnName}}) +
                tail);
        } else {
            select += FillStatement(kOrdinaryFields,
                                    {{"i", i}, {"name", item.ColumnName}, {"tax", item.TaxColumnName}});
            subs.push_back(
                FillStatement(kOrdinaryHead, {{"name", item.ColumnName}, {"tax", item.TaxColumnName}}) +
                tail);
        }
        if (k > 0) orList += " Or ";
        orList += item.ColumnName + (item.IsParking() ? "KFS" : "") + " Is Not Null";
    }
    std::string sql = select + kBillFrom;
    for (std::size_t k = 0; k < items.size(); ++k)
        sql += FillStatement(kItemJoin, {{"sub", subs[k]}, {"i", std::to_string(k + 1)}});
    return sql +
           FillStatement(kBillWhere, {{"dept", dept}, {"orList", orList}, {"start", start}, {"end", end}});
}

std::string frm票据预开明细表New::ChargeItemQuery() const {
    return PreInvoiceChargeItemQuery(StartText(), EndText(), DeptCode, BillTypeInList);
}

void frm票据预开明细表New::DropResultRows() {
    ResultRows.emplace(1);
}

std::optional<int> frm票据预开明细表New::ResultRowCount() const {
    if (!ResultRows) return std::nullopt;
    return static_cast<int>(ResultRows->size()) - 1;
}

bool frm票据预开明细表New::RunPreInvoiceQuery(const std::string& dept,
                                              const std::string& /*office: no statement uses it*/) {
    Connection& conn = Db();
    conn.CommandTimeout = 0;
    const std::string sql =
        PreInvoiceBillDetailQuery(ChargeItems, SplitTable, StartText(), EndText(), dept, BillTypeInList);
    Recordset rs = conn.OpenRecordset(sql);
    std::vector<PreInvoiceRow> rows(1);
    ItemAmountReader amountReader(kFirstAmountField, AmountColumnCount);
    for (; !rs.Eof(); rs.MoveNext()) {
        rows.emplace_back();
        ReadBill(rs, amountReader, rows.back());
    }
    ResultRows = std::move(rows);
    if (ResultRows->size() == 1) {
        ShowNoResultLabel();
        return false;
    }
    PreInvoiceRow total;
    total.BillDate = "合  计";
    total.Amounts.assign(AmountColumnCount, 0.0);
    for (std::size_t r = 1; r < ResultRows->size(); ++r) {
        const PreInvoiceRow& row = (*ResultRows)[r];
        for (int j = 0; j < AmountColumnCount; ++j) total.Amounts[j] += row.Amounts[j];
        total.RowTotal += row.RowTotal;
    }
    ResultRows->push_back(std::move(total));
    FinishResult(static_cast<int>(ResultRows->size()) - 1);
    return true;
}

void frm票据预开明细表New::ReadBill(const Recordset& rs, ItemAmountReader& amountReader, PreInvoiceRow& row) {
    row.BillDate = DateFieldText(rs.Fields("开票日期"));
    row.IsVoid = !rs.Fields("作废日期").IsNull();
    row.BillNo = rs.Fields("票据编号").Value().AsText();

    const std::string type = rs.Fields("票据类型").Value().AsText();
    if (Contains(type, "专用发票")) {
        row.SpecialInvoiceNo = row.BillNo;
    } else if (Contains(type, "普通发票")) {
        row.OrdinaryInvoiceNo = row.BillNo;
    } else if (Contains(type, "全电发票")) {
        // A fully electronic invoice counts as special only when the bill it replaced bore "01".
        const Field replaced = rs.Fields("被换票票据编号");
        if (replaced.IsNull() || InvoiceCodeProbe(Db(), DeptCode, replaced.Value().AsText()))
            row.OrdinaryInvoiceNo = row.BillNo;
        else
            row.SpecialInvoiceNo = row.BillNo;
    } else {
        row.OtherInvoiceNo = row.BillNo;
    }

    amountReader.Read(rs, row.Amounts);
    row.Payer = PayerWithAddress(rs);
    row.PayMode = "预开";
    for (double a : row.Amounts) row.RowTotal += a;
}

} // namespace quillon
