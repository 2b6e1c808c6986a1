// writer.h — model layer, demo data: DemoWriter stores what DemoBuilder drafted: the catalogues,
// the property, the bills and their lines, the ledger and the income vouchers.
#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "model/demo/builder.h"
#include "model/demo/statement.h"

namespace quillon::demo {

struct Voucher {
    std::int64_t id;
    OptText approved; // 审批日期
    int agreed;       // 审批同意
    std::string mode;
};

class DemoWriter {
public:
    DemoWriter(sqlite3* db, DemoBuilder& b) : db_(db), b_(b) {}
    void WriteAll();

private:
    void WriteCatalogues();
    void WriteProperty();
    void WriteInvoices();
    void WriteLedger();
    Voucher& VoucherFor(int office, int day, const OptText& mode);
    std::int64_t NewVoucher(int day, bool refund, const std::string& mode);
    void Attach(std::int64_t voucher, const std::string& lot, const std::string& number, Cents amount);
    void LedgerRow(std::optional<int> owner, std::optional<int> reg, std::optional<int> space, int item,
                   OptText period, Cents amount, int rate, std::optional<int> paidDay, const OptText& taker,
                   const OptText& mode, const OptText& lot, const OptText& number);

    sqlite3* db_;
    DemoBuilder& b_;
    std::vector<Voucher> vouchers_;
    std::map<std::pair<int, int>, std::size_t> weekVoucher_; // (office, week) -> voucher
    std::unique_ptr<Statement> ledger_, attach_;
    int attachments_ = 0;
};

} // namespace quillon::demo
