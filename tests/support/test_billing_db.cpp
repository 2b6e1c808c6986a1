// test_billing_db.cpp — temporary billing database for tests.
#include "support/test_billing_db.h"

#include <sqlite3.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <stdexcept>

#include "model/billing_schema.h"

namespace quillon {

namespace {

[[noreturn]] void Fail(sqlite3* db, const std::string& what) {
    throw std::runtime_error("test database: " + what + ": " + sqlite3_errmsg(db));
}

void Bind(sqlite3_stmt* s, int i, const std::string& v) {
    sqlite3_bind_text(s, i, v.data(), static_cast<int>(v.size()), SQLITE_TRANSIENT);
}
void Bind(sqlite3_stmt* s, int i, double v) {
    sqlite3_bind_double(s, i, v);
}
void Bind(sqlite3_stmt* s, int i, int v) {
    sqlite3_bind_int(s, i, v);
}
void Bind(sqlite3_stmt* s, int i, std::int64_t v) {
    sqlite3_bind_int64(s, i, v);
}
template <class T> void Bind(sqlite3_stmt* s, int i, const std::optional<T>& v) {
    if (v)
        Bind(s, i, *v);
    else
        sqlite3_bind_null(s, i);
}

// Runs one insert with its values bound in order.
template <class... Args> void Insert(sqlite3* db, const char* sql, const Args&... args) {
    sqlite3_stmt* s = nullptr;
    if (sqlite3_prepare_v2(db, sql, -1, &s, nullptr) != SQLITE_OK) Fail(db, sql);
    int i = 0;
    (Bind(s, ++i, args), ...);
    if (sqlite3_step(s) != SQLITE_DONE) {
        const std::string message = sqlite3_errmsg(db);
        sqlite3_finalize(s);
        throw std::runtime_error("test database: " + std::string(sql) + ": " + message);
    }
    sqlite3_finalize(s);
}

} // namespace

TestBillingDb::TestBillingDb() {
    std::string pattern = (std::filesystem::temp_directory_path() / "quillon-test-XXXXXX.db").string();
    const int fd = mkstemps(pattern.data(), 3);
    if (fd < 0) throw std::runtime_error("test database: cannot make a temporary file");
    close(fd);
    path_ = pattern;
    if (sqlite3_open(path_.c_str(), &db_) != SQLITE_OK) Fail(db_, "open " + path_);
    // A scratch file needs no durability; syncing every statement would make each test slow.
    Exec("PRAGMA synchronous=OFF; PRAGMA journal_mode=MEMORY; BEGIN");
    CreateBillingSchema(db_);
    Exec("COMMIT");
}

TestBillingDb::~TestBillingDb() {
    sqlite3_close(db_);
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
    std::filesystem::remove(path_ + "-journal", ignored);
}

std::string TestBillingDb::ConnectionText() const {
    return "Provider=SQLite;Data Source=" + path_;
}

TestBillingDb& TestBillingDb::Exec(const std::string& sql) {
    char* message = nullptr;
    if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
        std::string text = message ? message : "";
        sqlite3_free(message);
        throw std::runtime_error("test database: " + text + " in: " + sql);
    }
    return *this;
}

TestBillingDb& TestBillingDb::Department(const TestDepartment& d) {
    Insert(db_, "INSERT INTO 职能部门new (职能部门编号, 职能部门名称, 终止日期) VALUES (?, ?, ?)", d.code,
           d.name, d.ended);
    if (!d.parent.empty()) ParentLink({.dept = d.code, .parent = d.parent});
    return *this;
}

TestBillingDb& TestBillingDb::Department(const std::string& code, const std::string& name,
                                         const std::string& parent) {
    return Department(TestDepartment{.code = code, .name = name, .parent = parent});
}

TestBillingDb& TestBillingDb::ParentLink(const TestParentLink& link) {
    Insert(db_, "INSERT INTO 上级部门new (职能部门编号, 上级部门编号, 终止日期) VALUES (?, ?, ?)", link.dept,
           link.parent, link.ended);
    return *this;
}

TestBillingDb& TestBillingDb::Office(const TestOffice& o) {
    Insert(db_, "INSERT INTO 设置管理处 (GYD_DH, GYD_NAME, 对应部门代号, 终止日期) VALUES (?, ?, ?, ?)",
           o.code, o.name, o.dept, o.ended);
    return *this;
}

TestBillingDb& TestBillingDb::InvoiceType(const TestInvoiceType& t) {
    Insert(db_, "INSERT INTO 票据类型 (票据类型代号, 票据类型, 定额, 类别) VALUES (?, ?, ?, ?)", t.code,
           t.name, t.fixedValue, t.kind);
    return *this;
}

TestBillingDb& TestBillingDb::Lot(const TestLot& l) {
    Insert(db_, "INSERT INTO 票据入库单 (入库单编号, 票据类型编号) VALUES (?, ?)", l.lot, l.type);
    return *this;
}

TestBillingDb& TestBillingDb::ChargeItem(const TestChargeItem& c) {
    Insert(db_, "INSERT INTO SetupSFXM (DH, XM, 收费类别, 显示名称, 税率) VALUES (?, ?, ?, ?, ?)", c.code,
           c.name, c.category, c.displayName, c.rate);
    return *this;
}

TestBillingDb& TestBillingDb::DeviceItem(const TestDeviceItem& d) {
    Insert(db_, "INSERT INTO 税控盘收费项目设置 (DH, 税率, 管理处) VALUES (?, ?, ?)", d.item, d.rate,
           d.office);
    return *this;
}

TestBillingDb& TestBillingDb::Invoice(const TestInvoice& inv) {
    double amount = 0;
    for (const auto& line : inv.lines) amount += line.amount;
    if (inv.amount) amount = *inv.amount;
    Insert(db_,
           "INSERT INTO 票据 (ID, 入库单编号, 票据编号, 开票部门编号, 开票日期, 收款日期, 预开, 作废日期, "
           "退票日期, 内换日期, 内换票据编号, 对应调换票据入库单, 被换票票据编号, 被换票入库单编号, 金额, "
           "收款方式, 付款人, 地址, 收款人, 开票人, 交易订单号, 发票代码) "
           "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
           inv.id, inv.lot, inv.number, inv.dept, inv.issued, inv.paid, inv.preInvoice, inv.voided,
           inv.returned, inv.exchanged, inv.exchangedNumber, inv.exchangedLot, inv.replacesNumber,
           inv.replacesLot, amount, inv.mode, inv.payer, inv.address, inv.taker, inv.writer, inv.orderNo,
           inv.invoiceCode);
    lastInvoiceId_ = sqlite3_last_insert_rowid(db_);
    for (const auto& line : inv.lines) {
        Insert(db_,
               "INSERT INTO 票据开票数据 (票据id, 入库单编号, 票据编号, 收费项目代号, 项目, 摘要, 金额, "
               "税额, 税率) "
               "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)",
               lastInvoiceId_, inv.lot, inv.number, line.item, line.text, line.summary, line.amount, line.tax,
               line.rate);
    }
    return *this;
}

TestBillingDb& TestBillingDb::PaymentMode(const std::string& name) {
    Insert(db_, "INSERT INTO 收款方式列表 (收款方式) VALUES (?)", name);
    return *this;
}

std::string TestBillingDb::QueryText(const std::string& sql) {
    sqlite3_stmt* s = nullptr;
    if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &s, nullptr) != SQLITE_OK) Fail(db_, sql);
    std::string text;
    const int rc = sqlite3_step(s);
    if (rc == SQLITE_ROW) {
        if (auto* p = sqlite3_column_text(s, 0)) text = reinterpret_cast<const char*>(p);
    } else if (rc != SQLITE_DONE) {
        const std::string message = sqlite3_errmsg(db_);
        sqlite3_finalize(s);
        throw std::runtime_error("test database: " + sql + ": " + message);
    }
    sqlite3_finalize(s);
    return text;
}

} // namespace quillon
