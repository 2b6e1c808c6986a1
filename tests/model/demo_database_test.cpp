// The demo database: same seed, same file; and every situation the reports tell apart is in it,
// so that a change of the generator cannot silently lose one.
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "model/demo_database.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

constexpr int kSmallDemo = 400;

// A private temporary folder, removed on scope exit.
class TempDir {
public:
    TempDir() {
        std::string pattern = (fs::temp_directory_path() / "quillon-demo-XXXXXX").string();
        if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder");
        path_ = pattern;
    }
    ~TempDir() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    std::string File(const std::string& name) const { return (path_ / name).string(); }

private:
    fs::path path_;
};

std::string ReadAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
}

// Byte offset of the first difference, -1 when the files are equal.
long FirstDifference(const std::string& a, const std::string& b) {
    const std::size_t n = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < n; ++i)
        if (a[i] != b[i]) return static_cast<long>(i);
    return a.size() == b.size() ? -1 : static_cast<long>(n);
}

// The first column of the first row as a number; fails the test on a bad statement.
long long CountOf(sqlite3* db, const std::string& sql) {
    sqlite3_stmt* s = nullptr;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &s, nullptr) != SQLITE_OK) {
        ADD_FAILURE() << sqlite3_errmsg(db) << " in: " << sql;
        return -1;
    }
    long long n = -1;
    if (sqlite3_step(s) == SQLITE_ROW) n = sqlite3_column_int64(s, 0);
    sqlite3_finalize(s);
    return n;
}

TEST(DemoDatabase, SameSeedSameBytesOtherSeedOtherBytes) {
    TempDir dir;
    WriteDemoDatabase(dir.File("a.db"), {.invoices = kSmallDemo, .seed = 7});
    WriteDemoDatabase(dir.File("b.db"), {.invoices = kSmallDemo, .seed = 7});
    WriteDemoDatabase(dir.File("c.db"), {.invoices = kSmallDemo, .seed = 8});
    const std::string a = ReadAll(dir.File("a.db"));
    ASSERT_GT(a.size(), 0u);
    EXPECT_EQ(FirstDifference(a, ReadAll(dir.File("b.db"))), -1);
    EXPECT_NE(FirstDifference(a, ReadAll(dir.File("c.db"))), -1);
}

TEST(DemoDatabase, ReplacesAnExistingFileAndWritesTheAskedNumberOfInvoices) {
    TempDir dir;
    const std::string path = dir.File("demo.db");
    std::ofstream(path) << "not a database";
    WriteDemoDatabase(path, {.invoices = 1000});
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
    EXPECT_EQ(CountOf(db, "SELECT COUNT(*) FROM 票据"), 1000);
    sqlite3_close(db);
}

// One small demo database shared by the checks below.
class DemoContent : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        dir_ = new TempDir;
        WriteDemoDatabase(dir_->File("demo.db"), {.invoices = kSmallDemo});
        sqlite3_open_v2(dir_->File("demo.db").c_str(), &db_, SQLITE_OPEN_READONLY, nullptr);
    }
    static void TearDownTestSuite() {
        sqlite3_close(db_);
        delete dir_;
    }
    static TempDir* dir_;
    static sqlite3* db_;
};
TempDir* DemoContent::dir_ = nullptr;
sqlite3* DemoContent::db_ = nullptr;

// A bill's type name, for conditions on the bill of an alias.
std::string TypeOf(const std::string& bill) {
    return "(SELECT 票据类型 FROM 票据入库单 INNER JOIN 票据类型 ON 票据类型编号 = 票据类型代号 WHERE "
           "入库单编号 = " +
           bill + ".入库单编号)";
}

TEST_F(DemoContent, HoldsEverySituationTheReportsTellApart) {
    struct Case {
        const char* why;
        std::string countSql; // must count at least one row
    };
    const std::string parkingBill =
        "EXISTS (SELECT 1 FROM 票据开票数据 l INNER JOIN SetupSFXM ON l.收费项目代号 = "
        "DH WHERE l.票据id = 票据.ID AND 收费类别 LIKE '%停车%')";
    const Case cases[] = {
        // departments and offices
        {"department linked to a parent", "SELECT COUNT(*) FROM 上级部门new WHERE 终止日期 IS NULL"},
        {"ended department", "SELECT COUNT(*) FROM 职能部门new WHERE 终止日期 IS NOT NULL"},
        {"ended hierarchy link", "SELECT COUNT(*) FROM 上级部门new WHERE 终止日期 IS NOT NULL"},
        {"department re-parented: one ended and one active link",
         "SELECT COUNT(*) FROM 上级部门new a INNER JOIN 上级部门new e ON a.职能部门编号 = e.职能部门编号 "
         "WHERE a.终止日期 IS NULL AND e.终止日期 IS NOT NULL"},
        {"department whose only link has ended", "SELECT COUNT(*) FROM 职能部门new d WHERE EXISTS (SELECT 1 "
                                                 "FROM 上级部门new l WHERE l.职能部门编号 = "
                                                 "d.职能部门编号) AND NOT EXISTS (SELECT 1 FROM 上级部门new "
                                                 "l WHERE l.职能部门编号 = d.职能部门编号 AND "
                                                 "l.终止日期 IS NULL)"},
        {"active department under an ended one",
         "SELECT COUNT(*) FROM 上级部门new l INNER JOIN 职能部门new c ON c.职能部门编号 = l.职能部门编号 "
         "INNER JOIN 职能部门new p ON p.职能部门编号 = l.上级部门编号 WHERE c.终止日期 IS NULL AND "
         "p.终止日期 IS "
         "NOT NULL"},
        {"root department without link", "SELECT COUNT(*) FROM 职能部门new d WHERE NOT EXISTS (SELECT 1 FROM "
                                         "上级部门new l WHERE l.职能部门编号 = "
                                         "d.职能部门编号)"},
        {"department without office",
         "SELECT COUNT(*) FROM 职能部门new WHERE 职能部门编号 NOT IN (SELECT 对应部门代号 FROM 设置管理处)"},
        {"department with two active offices", "SELECT COUNT(*) FROM (SELECT 对应部门代号 FROM 设置管理处 "
                                               "WHERE 终止日期 IS NULL GROUP BY 对应部门代号 "
                                               "HAVING COUNT(*) > 1)"},
        {"office name with a line break",
         "SELECT COUNT(*) FROM 设置管理处 WHERE instr(GYD_NAME, char(13, 10)) > 0"},
        {"office name with a blank", "SELECT COUNT(*) FROM 设置管理处 WHERE instr(GYD_NAME, ' ') > 0"},
        {"ended office", "SELECT COUNT(*) FROM 设置管理处 WHERE 终止日期 IS NOT NULL"},
        {"active office of an ended department",
         "SELECT COUNT(*) FROM 设置管理处 INNER JOIN 职能部门new ON 对应部门代号 = 职能部门编号 "
         "WHERE 设置管理处.终止日期 IS NULL AND 职能部门new.终止日期 IS NOT NULL"},
        {"office codes of different lengths", "SELECT COUNT(DISTINCT length(GYD_DH)) - 1 FROM 设置管理处"},
        // invoice types
        {"type 增值税专用发票", "SELECT COUNT(*) FROM 票据类型 WHERE 票据类型 = '增值税专用发票'"},
        {"type 增值税普通发票", "SELECT COUNT(*) FROM 票据类型 WHERE 票据类型 = '增值税普通发票'"},
        {"type 全电发票", "SELECT COUNT(*) FROM 票据类型 WHERE 票据类型 = '全电发票'"},
        {"type 电子发票", "SELECT COUNT(*) FROM 票据类型 WHERE 票据类型 = '电子发票'"},
        {"type 收据 of class 收据",
         "SELECT COUNT(*) FROM 票据类型 WHERE 票据类型 = '收据' AND 类别 = '收据'"},
        {"type named with more words around 增值税普通发票",
         "SELECT COUNT(*) FROM 票据类型 WHERE 票据类型 LIKE '%增值税普通发票%' AND 票据类型 <> "
         "'增值税普通发票'"},
        {"type named with more words around 全电发票 and 增值税专用发票",
         "SELECT COUNT(*) FROM 票据类型 WHERE 票据类型 LIKE '%全电发票%' AND 票据类型 LIKE "
         "'%增值税专用发票%'"},
        {"bills of a fixed-value type", "SELECT COUNT(*) FROM 票据 INNER JOIN 票据入库单 USING (入库单编号) "
                                        "INNER JOIN 票据类型 ON 票据类型编号 = "
                                        "票据类型代号 WHERE 定额 = 1"},
        // charge items
        {"item name with '('", "SELECT COUNT(*) FROM SetupSFXM WHERE instr(XM, '(') > 0"},
        {"item name with '（'", "SELECT COUNT(*) FROM SetupSFXM WHERE instr(XM, '（') > 0"},
        {"item name with '%'", "SELECT COUNT(*) FROM SetupSFXM WHERE instr(XM, '%') > 0"},
        {"parking category", "SELECT COUNT(*) FROM SetupSFXM WHERE 收费类别 LIKE '%停车%'"},
        {"several parking items", "SELECT COUNT(*) - 1 FROM SetupSFXM WHERE 收费类别 LIKE '%停车%'"},
        {"item 维修基金 on bills",
         "SELECT COUNT(*) FROM 票据开票数据 INNER JOIN SetupSFXM ON 收费项目代号 = DH WHERE XM = '维修基金'"},
        {"item with a display name", "SELECT COUNT(*) FROM SetupSFXM WHERE 显示名称 IS NOT NULL"},
        {"item rate 0", "SELECT COUNT(*) FROM SetupSFXM WHERE 税率 = 0"},
        {"item rate 3", "SELECT COUNT(*) FROM SetupSFXM WHERE 税率 = 3"},
        {"item rate 6", "SELECT COUNT(*) FROM SetupSFXM WHERE 税率 = 6"},
        {"item rate 9", "SELECT COUNT(*) FROM SetupSFXM WHERE 税率 = 9"},
        {"item rate 13", "SELECT COUNT(*) FROM SetupSFXM WHERE 税率 = 13"},
        {"item set up at two rates in one office",
         "SELECT COUNT(*) FROM (SELECT DH FROM 税控盘收费项目设置 GROUP BY DH, 管理处 HAVING COUNT(*) > 1)"},
        // invoices: payment
        {"bills of 2024", "SELECT COUNT(*) FROM 票据 WHERE 开票日期 LIKE '2024-%'"},
        {"bills of 2025", "SELECT COUNT(*) FROM 票据 WHERE 开票日期 LIKE '2025-%'"},
        {"paid in the month of issue",
         "SELECT COUNT(*) FROM 票据 WHERE substr(收款日期, 1, 7) = substr(开票日期, 1, 7)"},
        {"paid later in the month of issue", "SELECT COUNT(*) FROM 票据 WHERE substr(收款日期, 1, 7) = "
                                             "substr(开票日期, 1, 7) AND substr(收款日期, 1, 10) "
                                             "> substr(开票日期, 1, 10)"},
        {"pre-invoice paid in a later month",
         "SELECT COUNT(*) FROM 票据 WHERE 预开 = 1 AND substr(收款日期, 1, 7) > substr(开票日期, 1, 7)"},
        {"paid in a later month without the 预开 flag",
         "SELECT COUNT(*) FROM 票据 WHERE 预开 = 0 AND substr(收款日期, 1, 7) > substr(开票日期, 1, 7)"},
        {"pre-invoice never paid",
         "SELECT COUNT(*) FROM 票据 WHERE 预开 = 1 AND 收款日期 IS NULL AND 作废日期 IS NULL"},
        {"unpaid without the 预开 flag",
         "SELECT COUNT(*) FROM 票据 WHERE 预开 = 0 AND 收款日期 IS NULL AND 作废日期 IS NULL"},
        {"paid in a month before issue",
         "SELECT COUNT(*) FROM 票据 WHERE substr(收款日期, 1, 7) < substr(开票日期, 1, 7)"},
        {"payment with a time of day", "SELECT COUNT(*) FROM 票据 WHERE length(收款日期) > 10"},
        {"payment as a bare date", "SELECT COUNT(*) FROM 票据 WHERE length(收款日期) = 10"},
        // invoices: state
        {"voided", "SELECT COUNT(*) FROM 票据 WHERE 作废日期 IS NOT NULL AND 金额 >= 0"},
        {"voided negative", "SELECT COUNT(*) FROM 票据 WHERE 作废日期 IS NOT NULL AND 金额 < 0"},
        {"returned", "SELECT COUNT(*) FROM 票据 WHERE 退票日期 IS NOT NULL AND 作废日期 IS NULL"},
        {"negative", "SELECT COUNT(*) FROM 票据 WHERE 金额 < 0 AND 作废日期 IS NULL"},
        {"exchanged internally, the new bill present",
         "SELECT COUNT(*) FROM 票据 a INNER JOIN 票据 b ON b.入库单编号 = a.对应调换票据入库单 AND "
         "b.票据编号 = "
         "a.内换票据编号 WHERE a.内换日期 IS NOT NULL AND b.开票部门编号 = a.开票部门编号"},
        {"replacing a bill of its own department", "SELECT COUNT(*) FROM 票据 b INNER JOIN 票据 a ON "
                                                   "a.入库单编号 = b.被换票入库单编号 AND a.票据编号 = "
                                                   "b.被换票票据编号 WHERE a.开票部门编号 = b.开票部门编号"},
        {"全电发票 replacing a bill with code 01", "SELECT COUNT(*) FROM 票据 b INNER JOIN 票据 a ON "
                                                   "a.入库单编号 = b.被换票入库单编号 AND a.票据编号 = "
                                                   "b.被换票票据编号 WHERE a.发票代码 = '01' AND " +
                                                       TypeOf("b") + " = '全电发票'"},
        {"全电发票 replacing a bill with another code", "SELECT COUNT(*) FROM 票据 b INNER JOIN 票据 a ON "
                                                        "a.入库单编号 = b.被换票入库单编号 AND a.票据编号 = "
                                                        "b.被换票票据编号 WHERE a.发票代码 <> '01' AND " +
                                                            TypeOf("b") + " = '全电发票'"},
        {"replacing a bill of its own type", "SELECT COUNT(*) FROM 票据 b INNER JOIN 票据 a ON a.入库单编号 "
                                             "= b.被换票入库单编号 AND a.票据编号 = "
                                             "b.被换票票据编号 WHERE " +
                                                 TypeOf("a") + " = " + TypeOf("b")},
        {"one number in two lots of one department",
         "SELECT COUNT(*) FROM 票据 a INNER JOIN 票据 b ON a.票据编号 = b.票据编号 AND a.入库单编号 < "
         "b.入库单编号 "
         "AND a.开票部门编号 = b.开票部门编号"},
        // invoices: lines and texts
        {"NULL tax on an invoice line",
         "SELECT COUNT(*) FROM 票据开票数据 INNER JOIN 票据 ON 票据.ID = 票据id WHERE 税额 IS NULL AND " +
             TypeOf("票据") + " <> '收据'"},
        {"receipt line without tax",
         "SELECT COUNT(*) FROM 票据开票数据 INNER JOIN 票据 ON 票据.ID = 票据id WHERE 税额 IS NULL AND " +
             TypeOf("票据") + " = '收据'"},
        {"bill with several lines",
         "SELECT COUNT(*) FROM (SELECT 票据id FROM 票据开票数据 GROUP BY 票据id HAVING COUNT(*) > 1)"},
        {"months ending in a comma", "SELECT COUNT(*) FROM 票据开票数据 WHERE 摘要 LIKE '2%,'"},
        {"months without the closing comma", "SELECT COUNT(*) FROM 票据开票数据 WHERE 摘要 GLOB "
                                             "'[0-9][0-9][0-9][0-9][0-9][0-9]*' AND 摘要 NOT LIKE '%,'"},
        {"summary that is no month", "SELECT COUNT(*) FROM 票据开票数据 WHERE 摘要 NOT LIKE '2%'"},
        {"line without summary", "SELECT COUNT(*) FROM 票据开票数据 WHERE 摘要 IS NULL"},
        {"parking bill with an order number",
         "SELECT COUNT(*) FROM 票据 WHERE 交易订单号 IS NOT NULL AND " + parkingBill},
        {"parking bill paid online without an order number",
         "SELECT COUNT(*) FROM 票据 WHERE 交易订单号 IS NULL AND 收款方式 IN ('微信', '微信支付', '支付宝') "
         "AND " +
             parkingBill},
        {"parking bill paid in cash", "SELECT COUNT(*) FROM 票据 WHERE 收款方式 = '现金' AND " + parkingBill},
        {"mode 微信", "SELECT COUNT(*) FROM 票据 WHERE 收款方式 = '微信'"},
        {"mode 微信支付", "SELECT COUNT(*) FROM 票据 WHERE 收款方式 = '微信支付'"},
        {"mode outside the list",
         "SELECT COUNT(*) FROM 票据 WHERE 收款方式 NOT IN (SELECT 收款方式 FROM 收款方式列表)"},
        {"bill without mode", "SELECT COUNT(*) FROM 票据 WHERE 收款方式 IS NULL"},
        {"payer with a line break", "SELECT COUNT(*) FROM 票据 WHERE instr(付款人, char(13, 10)) > 0"},
        {"address with a line break", "SELECT COUNT(*) FROM 票据 WHERE instr(地址, char(13, 10)) > 0"},
        {"bill without payer", "SELECT COUNT(*) FROM 票据 WHERE 付款人 IS NULL"},
        {"bill with payer and no address",
         "SELECT COUNT(*) FROM 票据 WHERE 付款人 IS NOT NULL AND 地址 IS NULL"},
        // ledger and property
        {"owner ledger row settled by a bill",
         "SELECT COUNT(*) FROM WYZJ INNER JOIN 业主表 ON 业主表.ZH_ID = WYZJ.ZH_ID INNER JOIN 票据 ON "
         "票据.入库单编号 = WYZJ.票据入库单编号 AND 票据.票据编号 = WYZJ.发票号码"},
        {"registration ledger row settled by a bill",
         "SELECT COUNT(*) FROM WYZJ INNER JOIN 车位申请登记表 ON DJ_ID = 登记ID INNER JOIN 票据 ON "
         "票据.入库单编号 = "
         "WYZJ.票据入库单编号 AND 票据.票据编号 = WYZJ.发票号码 WHERE WYZJ.ZH_ID IS NULL"},
        {"space ledger row settled by a bill",
         "SELECT COUNT(*) FROM WYZJ INNER JOIN 车位说明表 ON CW_ID = 车位说明表.ID INNER JOIN 票据 ON "
         "票据.入库单编号 "
         "= WYZJ.票据入库单编号 AND 票据.票据编号 = WYZJ.发票号码 WHERE WYZJ.ZH_ID IS NULL"},
        {"registration ledger row paid without a bill",
         "SELECT COUNT(*) FROM WYZJ WHERE DJ_ID IS NOT NULL AND 票据入库单编号 = '' AND 发票号码 = '' AND "
         "zj_skrq IS "
         "NOT NULL"},
        {"unpaid ledger row", "SELECT COUNT(*) FROM WYZJ WHERE zj_skrq IS NULL AND 票据入库单编号 IS NULL"},
        {"ledger row without period", "SELECT COUNT(*) FROM WYZJ WHERE zj_cny IS NULL"},
        {"ledger group spanning several months", "SELECT COUNT(*) FROM (SELECT 1 FROM WYZJ WHERE 发票号码 <> "
                                                 "'' GROUP BY 票据入库单编号, 发票号码, ZJ_LX "
                                                 "HAVING MIN(zj_cny) < MAX(zj_cny))"},
        {"building address with an empty piece",
         "SELECT COUNT(*) FROM 楼表 WHERE 字1 IS NULL AND 地址2 IS NOT NULL"},
        {"building address in three pieces", "SELECT COUNT(*) FROM 楼表 WHERE 地址3 IS NOT NULL"},
        {"owner of a room of a building", "SELECT COUNT(*) FROM 楼表 INNER JOIN 室表 ON 楼表.L_id = "
                                          "室表.L_id INNER JOIN 业主表 ON 室表.S_ID = "
                                          "业主表.S_ID"},
        {"space held by the developer", "SELECT COUNT(*) FROM 车位说明表 WHERE 产权人 LIKE '%房地产开发%'"},
        // vouchers
        {"approved voucher", "SELECT COUNT(*) FROM 收入凭证 WHERE 审批日期 IS NOT NULL AND 审批同意 = 1"},
        {"voucher waiting for approval", "SELECT COUNT(*) FROM 收入凭证 WHERE 审批日期 IS NULL"},
        {"voucher turned down", "SELECT COUNT(*) FROM 收入凭证 WHERE 审批日期 IS NOT NULL AND 审批同意 = 0"},
        {"refund voucher with a negative attachment",
         "SELECT COUNT(*) FROM 收入凭证附件清单 INNER JOIN 收入凭证 ON 凭证ID = 收入凭证.ID WHERE 收款方式 = "
         "'退款' "
         "AND 金额 < 0"},
        {"negative attachment on an ordinary voucher",
         "SELECT COUNT(*) FROM 收入凭证附件清单 INNER JOIN 收入凭证 ON 凭证ID = 收入凭证.ID WHERE 收款方式 "
         "<> '退款' "
         "AND 金额 < 0"},
        {"attachment with a remark behind the number matching a ledger row",
         "SELECT COUNT(*) FROM 收入凭证附件清单 x INNER JOIN WYZJ w ON w.票据入库单编号 = x.票据本编号 AND "
         "w.发票号码 = substr(x.票据编号, 1, instr(x.票据编号, '(') - 1) WHERE instr(x.票据编号, '(') > 1"},
        {"attachment with a remark in front",
         "SELECT COUNT(*) FROM 收入凭证附件清单 WHERE 票据编号 LIKE '(%'"},
        {"attachment with empty lot and number",
         "SELECT COUNT(*) FROM 收入凭证附件清单 WHERE 票据本编号 = '' AND 票据编号 = ''"},
        // payment modes and rights
        {"list has 微信支付 but not 微信", "SELECT COUNT(*) FROM 收款方式列表 WHERE 收款方式 = '微信支付' "
                                           "AND NOT EXISTS (SELECT 1 FROM 收款方式列表 "
                                           "WHERE 收款方式 = '微信')"},
        {"granted right with its menu entry",
         "SELECT COUNT(*) FROM 岗位权限设置 INNER JOIN GroupPrivilege ON 组代号 = GroupID WHERE 授权 = 1 AND "
         "Popedom = 1"},
        {"right not granted", "SELECT COUNT(*) FROM 岗位权限设置 WHERE 授权 = 0"},
        {"menu entry closed by Popedom", "SELECT COUNT(*) FROM GroupPrivilege WHERE Popedom = 0"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_GT(CountOf(db_, c.countSql), 0) << c.countSql;
    }
}

TEST_F(DemoContent, HoldsTogether) {
    struct Case {
        const char* why;
        const char* countSql; // must count no row
    };
    const Case cases[] = {
        {"line whose 票据id and lot and number name different bills",
         "SELECT COUNT(*) FROM 票据开票数据 l LEFT JOIN 票据 b ON b.ID = l.票据id WHERE b.ID IS NULL OR "
         "b.入库单编号 <> l.入库单编号 OR b.票据编号 <> l.票据编号"},
        {"bill without lines", "SELECT COUNT(*) FROM 票据 WHERE ID NOT IN (SELECT 票据id FROM 票据开票数据)"},
        {"bill amount unlike the sum of its lines", "SELECT COUNT(*) FROM 票据 WHERE abs(金额 - (SELECT "
                                                    "SUM(金额) FROM 票据开票数据 WHERE 票据id = 票据.ID)) > "
                                                    "0.001"},
        {"tax not the rounded tax part of the amount",
         "SELECT COUNT(*) FROM 票据开票数据 WHERE 税额 IS NOT NULL AND abs(税额 - round(金额 * 税率 / (1 + "
         "税率), 2)) "
         "> 0.001"},
        {"line rate unlike its item's rate on an invoice",
         "SELECT COUNT(*) FROM 票据开票数据 INNER JOIN SetupSFXM ON 收费项目代号 = DH WHERE 税额 IS NOT NULL "
         "AND "
         "abs(票据开票数据.税率 * 100 - SetupSFXM.税率) > 0.001"},
        {"amount with more than two decimals",
         "SELECT (SELECT COUNT(*) FROM 票据 WHERE abs(金额 * 100 - round(金额 * 100)) > 0.0001) + (SELECT "
         "COUNT(*) "
         "FROM 票据开票数据 WHERE abs(金额 * 100 - round(金额 * 100)) > 0.0001) + (SELECT COUNT(*) FROM WYZJ "
         "WHERE "
         "abs(zj_je * 100 - round(zj_je * 100)) > 0.0001 OR abs(收入 * 100 - round(收入 * 100)) > 0.0001)"},
        {"bill issued outside 2024 and 2025",
         "SELECT COUNT(*) FROM 票据 WHERE 开票日期 < '2024-01-01' OR 开票日期 >= '2026-01-01'"},
        {"anything dated after the data were taken",
         "SELECT (SELECT COUNT(*) FROM 票据 WHERE 收款日期 >= '2026-01-11' OR 退票日期 >= '2026-01-11') + "
         "(SELECT "
         "COUNT(*) FROM 收入凭证 WHERE 审批日期 >= '2026-01-11')"},
        {"bill of a department after it ended", "SELECT COUNT(*) FROM 票据 INNER JOIN 职能部门new ON "
                                                "开票部门编号 = 职能部门编号 WHERE 终止日期 IS NOT NULL "
                                                "AND substr(开票日期, 1, 10) > 终止日期"},
        {"bill of a department after its only office ended",
         "SELECT COUNT(*) FROM 票据 INNER JOIN 设置管理处 o ON 开票部门编号 = o.对应部门代号 WHERE "
         "o.终止日期 IS NOT "
         "NULL AND substr(开票日期, 1, 10) > o.终止日期 AND NOT EXISTS (SELECT 1 FROM 设置管理处 a WHERE "
         "a.对应部门代号 = o.对应部门代号 AND a.终止日期 IS NULL)"},
        {"bill of a lot without type", "SELECT COUNT(*) FROM 票据 LEFT JOIN 票据入库单 USING (入库单编号) "
                                       "LEFT JOIN 票据类型 ON 票据类型编号 = "
                                       "票据类型代号 WHERE 票据类型代号 IS NULL"},
        {"bill of a department without office",
         "SELECT COUNT(*) FROM 票据 WHERE 开票部门编号 NOT IN (SELECT 对应部门代号 FROM 设置管理处)"},
        {"office without tax-device rows",
         "SELECT COUNT(*) FROM 设置管理处 WHERE GYD_DH NOT IN (SELECT 管理处 FROM 税控盘收费项目设置)"},
        {"billed item not set up for any office of the department",
         "SELECT COUNT(*) FROM 票据开票数据 l INNER JOIN 票据 b ON b.ID = l.票据id WHERE NOT EXISTS (SELECT "
         "1 FROM "
         "税控盘收费项目设置 t INNER JOIN 设置管理处 o ON t.管理处 = o.GYD_DH WHERE o.对应部门代号 = "
         "b.开票部门编号 "
         "AND t.DH = l.收费项目代号)"},
        {"item name that makes no bare column name",
         "SELECT COUNT(*) FROM (SELECT replace(replace(replace(replace(replace(XM, '(', ''), ')', ''), '（', "
         "''), "
         "'）', ''), '%', '') AS n FROM SetupSFXM) WHERE n = '' OR n GLOB '[0-9]*' OR instr(n, ' ') > 0 OR "
         "instr(n, '.') > 0 OR instr(n, '-') > 0 OR instr(n, '/') > 0"},
        {"two items with one column name",
         "SELECT COUNT(*) FROM (SELECT 1 FROM SetupSFXM GROUP BY replace(replace(replace(replace(replace(XM, "
         "'(', "
         "''), ')', ''), '（', ''), '）', ''), '%', '') HAVING COUNT(*) > 1)"},
        {"ledger row naming a bill that does not exist",
         "SELECT COUNT(*) FROM WYZJ w WHERE 票据入库单编号 <> '' AND NOT EXISTS (SELECT 1 FROM 票据 b WHERE "
         "b.入库单编号 = w.票据入库单编号 AND b.票据编号 = w.发票号码)"},
        {"ledger row of nobody",
         "SELECT COUNT(*) FROM WYZJ WHERE ZH_ID IS NULL AND DJ_ID IS NULL AND CW_ID IS NULL"},
        {"attachment of a voucher that does not exist",
         "SELECT COUNT(*) FROM 收入凭证附件清单 WHERE 凭证ID NOT IN (SELECT ID FROM 收入凭证)"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(CountOf(db_, c.countSql), 0) << c.countSql;
    }
}

} // namespace
} // namespace quillon
