// bill_type_catalog.h — model layer: the invoice-type in-lists ('01','02',…) that the report
// statements splice in after "票据类型代号 In (". Each window reads them once at load.
#pragma once

#include <string>

namespace quillon {

class Connection;

// Which window reads the types: the statement and the fourth list differ between them.
enum class BillTypeWindow {
    ReconciliationNew, // frm票据核对表New: all types, fourth list = types named "收据"
    Reconciliation, // frm票据核对表: 类别 '发票' only, fourth list = "全电发票" and "电子发票"
    Detail,         // the three detail windows: the all-types list alone
};

struct BillTypeLists {
    std::string AllTypes;      // every type of the statement
    std::string SpecialTypes;  // name contains "增值税专用发票"
    std::string OrdinaryTypes; // name contains "增值税普通发票"
    std::string FourthTypes;   // whole-name test, by window
};

const char* BillTypeSql(BillTypeWindow window);

// No handling of its own: a failed read reaches the caller as the database layer's error.
BillTypeLists LoadBillTypeLists(Connection& conn, BillTypeWindow window);

// Appends 'code' to an in-list, with a comma when the list is not empty.
void AppendQuoted(std::string& inList, const std::string& code);

} // namespace quillon
