#include "model/bill_type_catalog.h"

#include "db/connection.h"

namespace quillon {

const char* BillTypeSql(BillTypeWindow window) {
    switch (window) {
    case BillTypeWindow::ReconciliationNew:
        return "Select * From 票据类型  where 定额=0  order by 票据类型代号 ";
    case BillTypeWindow::Reconciliation:
        return "Select * From 票据类型  Where 定额=0  And 类别 = '发票' order by 票据类型代号 ";
    case BillTypeWindow::Detail:
        break;
    }
    return "Select * From 票据类型  where 定额=0 order by 票据类型代号 ";
}

void AppendQuoted(std::string& inList, const std::string& code) {
    if (!inList.empty()) inList += ",";
    inList += "'" + code + "'";
}

BillTypeLists LoadBillTypeLists(Connection& conn, BillTypeWindow window) {
    auto rs = conn.OpenRecordset(BillTypeSql(window));
    BillTypeLists lists;
    for (; !rs.Eof(); rs.MoveNext()) {
        std::string code = rs.Fields("票据类型代号").Value().AsText();
        std::string name = rs.Fields("票据类型").Value().AsText();
        AppendQuoted(lists.AllTypes, code);
        if (window == BillTypeWindow::Detail) continue;
        // Each test stands by itself: one type may fall into several lists.
        if (name.find("增值税专用发票") != std::string::npos) AppendQuoted(lists.SpecialTypes, code);
        if (name.find("增值税普通发票") != std::string::npos) AppendQuoted(lists.OrdinaryTypes, code);
        bool fourth = window == BillTypeWindow::ReconciliationNew
                          ? name == "收据"
                          : (name == "全电发票" || name == "电子发票");
        if (fourth) AppendQuoted(lists.FourthTypes, code);
    }
    return lists;
}

} // namespace quillon
