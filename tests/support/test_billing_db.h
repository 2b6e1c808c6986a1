// test_billing_db.h — test support: a temporary billing database file with the full schema,
// removed on scope exit, and short helpers that insert the rows a test case needs.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct sqlite3;

namespace quillon {

// 职能部门new row; a non-empty `parent` also adds its link in 上级部门new.
struct TestDepartment {
    std::string code{};
    std::string name{};
    std::string parent{};
    std::optional<std::string> ended{}; // 终止日期
};

// 上级部门new row.
struct TestParentLink {
    std::string dept{};
    std::string parent{};
    std::optional<std::string> ended{};
};

// 设置管理处 row.
struct TestOffice {
    std::string code{}; // GYD_DH
    std::string name{}; // GYD_NAME
    std::string dept{}; // 对应部门代号
    std::optional<std::string> ended{};
};

// 票据类型 row.
struct TestInvoiceType {
    std::string code{};
    std::string name{};
    int fixedValue = 0;        // 定额
    std::string kind = "发票"; // 类别
};

// 票据入库单 row.
struct TestLot {
    std::string lot{};
    std::string type{};
};

// SetupSFXM row.
struct TestChargeItem {
    std::string code{};
    std::string name{};
    std::string category{};                   // 收费类别
    double rate = 0;                          // 税率 as a fraction (0.06)
    std::optional<std::string> displayName{}; // 显示名称
};

// 税控盘收费项目设置 row.
struct TestDeviceItem {
    std::string item{};   // DH
    double rate = 0;      // 税率 in percent
    std::string office{}; // 管理处
};

// 票据开票数据 row; lot, number and 票据id come from the invoice.
struct TestInvoiceLine {
    std::string item{};          // 收费项目代号
    double amount = 0;           // 金额, tax included
    std::optional<double> tax{}; // 税额; unset is NULL
    double rate = 0;             // 税率 as a fraction (0.06)
    std::string text{};          // 项目
    std::optional<std::string> summary{};
};

// 票据 row with its lines. Unset optionals are NULL (set std::nullopt to clear a defaulted text);
// an unset amount is the sum of the lines.
struct TestInvoice {
    std::string lot{};
    std::string number{};
    std::string dept{};
    std::string issued{};              // 开票日期
    std::optional<std::string> paid{}; // 收款日期
    int preInvoice = 0;                // 预开
    std::optional<std::string> voided{};
    std::optional<std::string> returned{};
    std::optional<std::string> exchanged{};       // 内换日期
    std::optional<std::string> exchangedNumber{}; // 内换票据编号
    std::optional<std::string> exchangedLot{};    // 对应调换票据入库单
    std::optional<std::string> replacesNumber{};  // 被换票票据编号
    std::optional<std::string> replacesLot{};     // 被换票入库单编号
    std::optional<double> amount{};
    std::optional<std::string> mode = "现金"; // 收款方式
    std::optional<std::string> payer = "付款人";
    std::optional<std::string> address{};
    std::optional<std::string> taker = "收款员";  // 收款人
    std::optional<std::string> writer = "开票员"; // 开票人
    std::optional<std::string> orderNo{};         // 交易订单号
    std::optional<std::string> invoiceCode{};     // 发票代码
    std::vector<TestInvoiceLine> lines{};
    std::optional<std::int64_t> id{}; // 票据.ID; unset takes the next free one
};

class TestBillingDb {
public:
    TestBillingDb();
    ~TestBillingDb();
    TestBillingDb(const TestBillingDb&) = delete;
    TestBillingDb& operator=(const TestBillingDb&) = delete;

    // The database file.
    const std::string& Path() const { return path_; }
    // Connection text that opens the file through the embedded backend.
    std::string ConnectionText() const;

    // Runs any statements (inserts, updates); throws std::runtime_error on failure.
    TestBillingDb& Exec(const std::string& sql);

    // Adds a department (and its parent link when `parent` is given).
    TestBillingDb& Department(const TestDepartment& d);
    // Adds an active department, as Department({code, name, parent}).
    TestBillingDb& Department(const std::string& code, const std::string& name,
                              const std::string& parent = "");
    // Adds a department hierarchy link.
    TestBillingDb& ParentLink(const TestParentLink& link);
    // Adds a management office.
    TestBillingDb& Office(const TestOffice& o);
    // Adds an invoice type.
    TestBillingDb& InvoiceType(const TestInvoiceType& t);
    // Adds an invoice lot of a type.
    TestBillingDb& Lot(const TestLot& l);
    // Adds a charge item.
    TestBillingDb& ChargeItem(const TestChargeItem& c);
    // Adds a charge item's tax-device setting for one office.
    TestBillingDb& DeviceItem(const TestDeviceItem& d);
    // Adds an invoice and its lines; LastInvoiceId() tells the ID it got.
    TestBillingDb& Invoice(const TestInvoice& inv);
    // Adds a mode of payment to 收款方式列表.
    TestBillingDb& PaymentMode(const std::string& name);

    // 票据.ID of the invoice added last.
    std::int64_t LastInvoiceId() const { return lastInvoiceId_; }
    // Runs a query and returns the first column of its first row as text ("" for no row/NULL).
    std::string QueryText(const std::string& sql);

private:
    std::string path_;
    sqlite3* db_ = nullptr;
    std::int64_t lastInvoiceId_ = 0;
};

} // namespace quillon
