#include "model/payment_catalog.h"

#include "db/connection.h"

namespace quillon {

std::vector<std::string> LoadPaymentModes(Connection& conn) {
    std::vector<std::string> modes;
    for (auto rs = conn.OpenRecordset(kPaymentModesSql); !rs.Eof(); rs.MoveNext())
        modes.push_back(rs.Fields("收款方式").Value().AsText());
    return modes;
}

bool InvoiceCodeProbe(Connection& conn, const std::string& deptCode, const std::string& number) {
    auto rs = conn.OpenRecordset("Select 发票代码 From 票据 Where 开票部门编号 = '" + deptCode +
                                 "' And 票据编号 = '" + number + "'");
    if (rs.Eof() || rs.Fields("发票代码").IsNull()) return true;
    return rs.Fields("发票代码").Value().AsText() != "01";
}

} // namespace quillon
