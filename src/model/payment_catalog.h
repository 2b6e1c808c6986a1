// payment_catalog.h — model layer: the modes of payment, and the probe of an invoice's code.
#pragma once

#include <string>
#include <vector>

namespace quillon {

class Connection;

inline constexpr const char* kPaymentModesSql = "Select * From 收款方式列表";

// The modes in the order the server returns them (element 0 is the old list's element 1).
// Read anew at each call; no handling of its own.
std::vector<std::string> LoadPaymentModes(Connection& conn);

// True when the department has no invoice of that number, or its 发票代码 is NULL or anything
// but "01". Only the first row counts. No handling of its own.
bool InvoiceCodeProbe(Connection& conn, const std::string& deptCode, const std::string& number);

} // namespace quillon
