// The demo database: same seed, same file; and every situation the reports tell apart is in it,
// so that a change of the generator cannot silently lose one.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "model/demo_database.h"
#include "support/temp_dir.h"

namespace quillon {
namespace {

constexpr int kSmallDemo = 400;

std::string ReadAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream out;
    out << in.rdbuf();
    return out.str();
}

// Byte offset of the first difference, -1 when the files are equal.
long FirstDifference(const std::string& a, const std::string& b) {
    const auto n = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < n; ++i)
        if (a[i] != b[i]) return static_cast<long>(i);
    return a.size() == b.size() ? -1 : static_cast<long>(n);
}

// The first column of the first row as a number; fails the test on a bad statement. A condition
// that does not start with SELECT is what follows "SELECT COUNT(*) FROM ".
long long CountOf(sqlite3* db, std::string sql) {
    if (sql.rfind("SELECT", 0) != 0) sql = "SELECT COUNT(*) FROM " + sql;
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

TEST(DemoDatabase, SameSeedSameBytesOtherSeedOtherBytesAndAnOldFileReplaced) {
    TempDir dir;
    std::ofstream(dir.File("a.db")) << "not a database";
    WriteDemoDatabase(dir.File("a.db"), {.invoices = kSmallDemo, .seed = 7});
    WriteDemoDatabase(dir.File("b.db"), {.invoices = kSmallDemo, .seed = 7});
    WriteDemoDatabase(dir.File("c.db"), {.invoices = kSmallDemo, .seed = 8});
    const std::string a = ReadAll(dir.File("a.db"));
    ASSERT_GT(a.size(), 0u);
    EXPECT_EQ(FirstDifference(a, ReadAll(dir.File("b.db"))), -1);
    EXPECT_NE(FirstDifference(a, ReadAll(dir.File("c.db"))), -1);
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open_v2(dir.File("a.db").c_str(), &db, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
    EXPECT_EQ(CountOf(db, "票据"), kSmallDemo) << "the asked number of invoices";
    sqlite3_close(db);
}

// One small demo database shared by the checks below, removed when the program ends.
sqlite3* SmallDemo() {
    static TempDir dir;
    static sqlite3* db = [] {
        sqlite3* opened = nullptr;
        WriteDemoDatabase(dir.File("demo.db"), {.invoices = kSmallDemo});
        sqlite3_open_v2(dir.File("demo.db").c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
        return opened;
    }();
    return db;
}

// A bill's type name, for conditions on the bill of an alias.
std::string TypeOf(const std::string& bill) {
    return "(SELECT 票据类型 FROM 票据入库单 INNER JOIN 票据类型 ON 票据类型编号 = 票据类型代号 WHERE "
           "入库单编号 = " +
           bill + ".入库单编号)";
}

TEST(DemoContent, HoldsEverySituationTheReportsTellApart) {
    struct Case {
        const char* why;
        std::string countSql; // must count at least one row
    };
    const std::string parkingBill =
        "EXISTS (SELECT 1 FROM 票据开票数据 l INNER JOIN SetupSFXM ON l.收费项目代号 = DH WHERE l.票据id = "
        "票据.ID AND 收费类别 LIKE '%停车%')";
    const Case cases[] = {
        // departments and offices
        {"department re-parented: one ended and one active link (so some links are ended, some not)",
         "上级部门new a INNER JOIN 上级部门new e ON a.职能部门编号 = e.职能部门编号 WHERE a.终止日期 IS NULL "
         "AND e.终止日期 IS NOT NULL"},
        {"department whose only link has ended",
         "职能部门new d WHERE EXISTS (SELECT 1 FROM 上级部门new l WHERE l.职能部门编号 = d.职能部门编号) AND "
         "NOT EXISTS (SELECT 1 FROM 上级部门new l WHERE l.职能部门编号 = d.职能部门编号 AND l.终止日期 IS "
         "NULL)"},
        {"active department under an ended one (so some departments are ended)",
         "上级部门new l INNER JOIN 职能部门new c ON c.职能部门编号 = l.职能部门编号 INNER JOIN 职能部门new p "
         "ON p.职能部门编号 = l.上级部门编号 WHERE c.终止日期 IS NULL AND p.终止日期 IS NOT NULL"},
        {"root department without link", "职能部门new d WHERE NOT EXISTS (SELECT 1 FROM 上级部门new l WHERE "
                                         "l.职能部门编号 = d.职能部门编号)"},
        {"department without office",
         "职能部门new WHERE 职能部门编号 NOT IN (SELECT 对应部门代号 FROM 设置管理处)"},
        {"department with two active offices", "(SELECT 对应部门代号 FROM 设置管理处 WHERE 终止日期 IS NULL "
                                               "GROUP BY 对应部门代号 HAVING COUNT(*) > 1)"},
        {"office name with a line break", "设置管理处 WHERE instr(GYD_NAME, char(13, 10)) > 0"},
        {"office name with a blank", "设置管理处 WHERE instr(GYD_NAME, ' ') > 0"},
        {"ended office", "设置管理处 WHERE 终止日期 IS NOT NULL"},
        {"active office of an ended department",
         "设置管理处 INNER JOIN 职能部门new ON 对应部门代号 = 职能部门编号 WHERE 设置管理处.终止日期 IS NULL "
         "AND 职能部门new.终止日期 IS NOT NULL"},
        {"office codes of different lengths", "SELECT COUNT(DISTINCT length(GYD_DH)) - 1 FROM 设置管理处"},
        // invoice types
        {"types 增值税专用发票, 增值税普通发票, 全电发票, 电子发票",
         "SELECT COUNT(DISTINCT 票据类型) - 3 FROM 票据类型 WHERE 票据类型 IN ('增值税专用发票', "
         "'增值税普通发票', '全电发票', '电子发票')"},
        {"type 收据 of class 收据", "票据类型 WHERE 票据类型 = '收据' AND 类别 = '收据'"},
        {"type named with more words around 增值税普通发票",
         "票据类型 WHERE 票据类型 LIKE '%增值税普通发票%' AND 票据类型 <> '增值税普通发票'"},
        {"type named with more words around 全电发票 and 增值税专用发票",
         "票据类型 WHERE 票据类型 LIKE '%全电发票%' AND 票据类型 LIKE '%增值税专用发票%'"},
        {"bills of a fixed-value type", "票据 INNER JOIN 票据入库单 USING (入库单编号) INNER JOIN 票据类型 "
                                        "ON 票据类型编号 = 票据类型代号 WHERE 定额 = 1"},
        // charge items
        {"item name with '('", "SetupSFXM WHERE instr(XM, '(') > 0"},
        {"item name with '（'", "SetupSFXM WHERE instr(XM, '（') > 0"},
        {"item name with '%'", "SetupSFXM WHERE instr(XM, '%') > 0"},
        {"several items of the parking category",
         "SELECT COUNT(*) - 1 FROM SetupSFXM WHERE 收费类别 LIKE '%停车%'"},
        {"item 维修基金 on bills",
         "票据开票数据 INNER JOIN SetupSFXM ON 收费项目代号 = DH WHERE XM = '维修基金'"},
        {"item with a display name", "SetupSFXM WHERE 显示名称 IS NOT NULL"},
        {"item rates 0, 3, 6, 9 and 13 %, as fractions",
         "SELECT COUNT(DISTINCT 税率) - 4 FROM SetupSFXM WHERE 税率 IN (0, 0.03, 0.06, 0.09, 0.13)"},
        {"item set up at two rates in one office",
         "(SELECT DH FROM 税控盘收费项目设置 GROUP BY DH, 管理处 HAVING COUNT(*) > 1)"},
        // invoices: payment
        {"bills of 2024 and of 2025", "SELECT COUNT(DISTINCT substr(开票日期, 1, 4)) - 1 FROM 票据 WHERE "
                                      "substr(开票日期, 1, 4) IN ('2024', '2025')"},
        {"paid in the month of issue, on a later day",
         "票据 WHERE substr(收款日期, 1, 7) = substr(开票日期, 1, 7) AND "
         "substr(收款日期, 1, 10) > substr(开票日期, 1, 10)"},
        {"pre-invoice paid in a later month",
         "票据 WHERE 预开 = 1 AND substr(收款日期, 1, 7) > substr(开票日期, 1, 7)"},
        {"paid in a later month without the 预开 flag",
         "票据 WHERE 预开 = 0 AND substr(收款日期, 1, 7) > substr(开票日期, 1, 7)"},
        {"pre-invoice never paid", "票据 WHERE 预开 = 1 AND 收款日期 IS NULL AND 作废日期 IS NULL"},
        {"unpaid without the 预开 flag", "票据 WHERE 预开 = 0 AND 收款日期 IS NULL AND 作废日期 IS NULL"},
        {"paid in a month before issue", "票据 WHERE substr(收款日期, 1, 7) < substr(开票日期, 1, 7)"},
        {"payment with a time of day", "票据 WHERE length(收款日期) > 10"},
        {"payment as a bare date", "票据 WHERE length(收款日期) = 10"},
        // invoices: state
        {"voided", "票据 WHERE 作废日期 IS NOT NULL AND 金额 >= 0"},
        {"voided negative", "票据 WHERE 作废日期 IS NOT NULL AND 金额 < 0"},
        {"returned", "票据 WHERE 退票日期 IS NOT NULL AND 作废日期 IS NULL"},
        {"negative", "票据 WHERE 金额 < 0 AND 作废日期 IS NULL"},
        {"exchanged internally, the new bill present",
         "票据 a INNER JOIN 票据 b ON b.入库单编号 = a.对应调换票据入库单 AND b.票据编号 = a.内换票据编号 "
         "WHERE a.内换日期 IS NOT NULL AND b.开票部门编号 = a.开票部门编号"},
        {"replacing a bill of its own department",
         "票据 b INNER JOIN 票据 a ON a.入库单编号 = b.被换票入库单编号 AND a.票据编号 = b.被换票票据编号 "
         "WHERE a.开票部门编号 = b.开票部门编号"},
        {"全电发票 replacing a bill with code 01",
         "票据 b INNER JOIN 票据 a ON a.入库单编号 = b.被换票入库单编号 AND a.票据编号 = b.被换票票据编号 "
         "WHERE a.发票代码 = '01' AND " +
             TypeOf("b") + " = '全电发票'"},
        {"全电发票 replacing a bill with another code",
         "票据 b INNER JOIN 票据 a ON a.入库单编号 = b.被换票入库单编号 AND a.票据编号 = b.被换票票据编号 "
         "WHERE a.发票代码 <> '01' AND " +
             TypeOf("b") + " = '全电发票'"},
        {"replacing a bill of its own type", "票据 b INNER JOIN 票据 a ON a.入库单编号 = b.被换票入库单编号 "
                                             "AND a.票据编号 = b.被换票票据编号 WHERE " +
                                                 TypeOf("a") + " = " + TypeOf("b")},
        {"one number in two lots of one department",
         "票据 a INNER JOIN 票据 b ON a.票据编号 = b.票据编号 AND a.入库单编号 < b.入库单编号 AND "
         "a.开票部门编号 = b.开票部门编号"},
        // invoices: lines and texts
        {"NULL tax on an invoice line",
         "票据开票数据 INNER JOIN 票据 ON 票据.ID = 票据id WHERE 税额 IS NULL AND " + TypeOf("票据") +
             " <> '收据'"},
        {"receipt line without tax",
         "票据开票数据 INNER JOIN 票据 ON 票据.ID = 票据id WHERE 税额 IS NULL AND " + TypeOf("票据") +
             " = '收据'"},
        {"bill with several lines", "(SELECT 票据id FROM 票据开票数据 GROUP BY 票据id HAVING COUNT(*) > 1)"},
        {"months ending in a comma", "票据开票数据 WHERE 摘要 LIKE '2%,'"},
        {"months without the closing comma",
         "票据开票数据 WHERE 摘要 GLOB '[0-9][0-9][0-9][0-9][0-9][0-9]*' AND 摘要 NOT LIKE '%,'"},
        {"summary that is no month", "票据开票数据 WHERE 摘要 NOT LIKE '2%'"},
        {"line without summary", "票据开票数据 WHERE 摘要 IS NULL"},
        {"parking bill with an order number", "票据 WHERE 交易订单号 IS NOT NULL AND " + parkingBill},
        {"parking bill paid online without an order number",
         "票据 WHERE 交易订单号 IS NULL AND 收款方式 IN ('微信', '微信支付', '支付宝') AND " + parkingBill},
        {"parking bill paid in cash", "票据 WHERE 收款方式 = '现金' AND " + parkingBill},
        {"modes 微信 and 微信支付",
         "SELECT COUNT(DISTINCT 收款方式) - 1 FROM 票据 WHERE 收款方式 IN ('微信', '微信支付')"},
        {"mode outside the list", "票据 WHERE 收款方式 NOT IN (SELECT 收款方式 FROM 收款方式列表)"},
        {"bill without mode", "票据 WHERE 收款方式 IS NULL"},
        {"payer with a line break", "票据 WHERE instr(付款人, char(13, 10)) > 0"},
        {"address with a line break", "票据 WHERE instr(地址, char(13, 10)) > 0"},
        {"bill without payer", "票据 WHERE 付款人 IS NULL"},
        {"bill with payer and no address", "票据 WHERE 付款人 IS NOT NULL AND 地址 IS NULL"},
        // ledger and property
        {"owner ledger row settled by a bill",
         "WYZJ INNER JOIN 业主表 ON 业主表.ZH_ID = WYZJ.ZH_ID INNER JOIN 票据 ON 票据.入库单编号 = "
         "WYZJ.票据入库单编号 AND 票据.票据编号 = WYZJ.发票号码"},
        {"registration ledger row settled by a bill",
         "WYZJ INNER JOIN 车位申请登记表 ON DJ_ID = 登记ID INNER JOIN 票据 ON 票据.入库单编号 = "
         "WYZJ.票据入库单编号 AND 票据.票据编号 = WYZJ.发票号码 WHERE WYZJ.ZH_ID IS NULL"},
        {"space ledger row settled by a bill",
         "WYZJ INNER JOIN 车位说明表 ON CW_ID = 车位说明表.ID INNER JOIN 票据 ON 票据.入库单编号 = "
         "WYZJ.票据入库单编号 AND 票据.票据编号 = WYZJ.发票号码 WHERE WYZJ.ZH_ID IS NULL"},
        {"registration ledger row paid without a bill",
         "WYZJ WHERE DJ_ID IS NOT NULL AND 票据入库单编号 = '' AND 发票号码 = '' AND zj_skrq IS NOT NULL"},
        {"unpaid ledger row", "WYZJ WHERE zj_skrq IS NULL AND 票据入库单编号 IS NULL"},
        {"ledger row without period", "WYZJ WHERE zj_cny IS NULL"},
        {"ledger group spanning several months",
         "(SELECT 1 FROM WYZJ WHERE 发票号码 <> '' GROUP BY 票据入库单编号, 发票号码, ZJ_LX HAVING "
         "MIN(zj_cny) < MAX(zj_cny))"},
        {"building address with an empty piece", "楼表 WHERE 字1 IS NULL AND 地址2 IS NOT NULL"},
        {"building address in three pieces", "楼表 WHERE 地址3 IS NOT NULL"},
        {"owner of a room of a building",
         "楼表 INNER JOIN 室表 ON 楼表.L_id = 室表.L_id INNER JOIN 业主表 ON 室表.S_ID = 业主表.S_ID"},
        {"space held by the developer", "车位说明表 WHERE 产权人 LIKE '%房地产开发%'"},
        // vouchers
        {"approved voucher", "收入凭证 WHERE 审批日期 IS NOT NULL AND 审批同意 = 1"},
        {"voucher waiting for approval", "收入凭证 WHERE 审批日期 IS NULL"},
        {"voucher turned down", "收入凭证 WHERE 审批日期 IS NOT NULL AND 审批同意 = 0"},
        {"refund voucher with a negative attachment",
         "收入凭证附件清单 INNER JOIN 收入凭证 ON 凭证ID = 收入凭证.ID WHERE 收款方式 = '退款' AND 金额 < 0"},
        {"negative attachment on an ordinary voucher", "收入凭证附件清单 INNER JOIN 收入凭证 ON 凭证ID = "
                                                       "收入凭证.ID WHERE 收款方式 <> '退款' AND 金额 < 0"},
        {"attachment with a remark behind the number matching a ledger row",
         "收入凭证附件清单 x INNER JOIN WYZJ w ON w.票据入库单编号 = x.票据本编号 AND w.发票号码 = "
         "substr(x.票据编号, 1, instr(x.票据编号, '(') - 1) WHERE instr(x.票据编号, '(') > 1"},
        {"attachment with a remark in front", "收入凭证附件清单 WHERE 票据编号 LIKE '(%'"},
        {"attachment with empty lot and number", "收入凭证附件清单 WHERE 票据本编号 = '' AND 票据编号 = ''"},
        // payment modes and rights
        {"list has 微信支付 but not 微信", "收款方式列表 WHERE 收款方式 = '微信支付' AND NOT EXISTS (SELECT "
                                           "1 FROM 收款方式列表 WHERE 收款方式 = '微信')"},
        {"granted right with its menu entry",
         "岗位权限设置 INNER JOIN GroupPrivilege ON 组代号 = GroupID WHERE 授权 = 1 AND Popedom = 1"},
        {"right not granted", "岗位权限设置 WHERE 授权 = 0"},
        {"menu entry closed by Popedom", "GroupPrivilege WHERE Popedom = 0"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_GT(CountOf(SmallDemo(), c.countSql), 0) << c.countSql;
    }
}

TEST(DemoContent, HoldsTogether) {
    struct Case {
        const char* why;
        const char* countSql; // must count no row
    };
    const Case cases[] = {
        {"line whose 票据id and lot and number name different bills",
         "票据开票数据 l LEFT JOIN 票据 b ON b.ID = l.票据id WHERE b.ID IS NULL OR b.入库单编号 <> "
         "l.入库单编号 OR b.票据编号 <> l.票据编号"},
        {"bill without lines", "票据 WHERE ID NOT IN (SELECT 票据id FROM 票据开票数据)"},

        {"anything dated after the data were taken",
         "SELECT (SELECT COUNT(*) FROM 票据 WHERE 收款日期 >= '2026-01-11' OR 退票日期 >= '2026-01-11') + "
         "(SELECT COUNT(*) FROM 收入凭证 WHERE 审批日期 >= '2026-01-11')"},
        {"bill of a department after it ended",
         "票据 INNER JOIN 职能部门new ON 开票部门编号 = 职能部门编号 WHERE 终止日期 IS NOT NULL AND "
         "substr(开票日期, 1, 10) > 终止日期"},
        {"bill of a department after its only office ended",
         "票据 INNER JOIN 设置管理处 o ON 开票部门编号 = o.对应部门代号 WHERE o.终止日期 IS NOT NULL AND "
         "substr(开票日期, 1, 10) > o.终止日期 AND NOT EXISTS (SELECT 1 FROM 设置管理处 a WHERE "
         "a.对应部门代号 = o.对应部门代号 AND a.终止日期 IS NULL)"},
        {"bill of a lot without type", "票据 LEFT JOIN 票据入库单 USING (入库单编号) LEFT JOIN 票据类型 ON "
                                       "票据类型编号 = 票据类型代号 WHERE 票据类型代号 IS NULL"},
        {"bill of a department without office",
         "票据 WHERE 开票部门编号 NOT IN (SELECT 对应部门代号 FROM 设置管理处)"},
        {"item whose fraction is none of its tax-device percentages",
         "SetupSFXM s WHERE NOT EXISTS (SELECT 1 FROM 税控盘收费项目设置 t WHERE t.DH = s.DH AND "
         "abs(t.税率 - s.税率 * 100) < 1e-9)"},
        {"office without tax-device rows",
         "设置管理处 WHERE GYD_DH NOT IN (SELECT 管理处 FROM 税控盘收费项目设置)"},
        {"billed item not set up for any office of the department",
         "票据开票数据 l INNER JOIN 票据 b ON b.ID = l.票据id WHERE NOT EXISTS (SELECT 1 FROM "
         "税控盘收费项目设置 t INNER JOIN 设置管理处 o ON t.管理处 = o.GYD_DH WHERE o.对应部门代号 = "
         "b.开票部门编号 AND t.DH = l.收费项目代号)"},
        {"item name that makes no bare column name",
         "(SELECT replace(replace(replace(replace(replace(XM, '(', ''), ')', ''), '（', ''), '）', ''), '%', "
         "'') AS n FROM SetupSFXM) WHERE n = '' OR n GLOB '[0-9]*' OR instr(n, ' ') > 0 OR instr(n, '.') > 0 "
         "OR instr(n, '-') > 0 OR instr(n, '/') > 0"},
        {"two items with one column name",
         "(SELECT 1 FROM SetupSFXM GROUP BY replace(replace(replace(replace(replace(XM, '(', ''), ')', ''), "
         "'（', ''), '）', ''), '%', '') HAVING COUNT(*) > 1)"},
        {"ledger row naming a bill that does not exist",
         "WYZJ w WHERE 票据入库单编号 <> '' AND NOT EXISTS (SELECT 1 FROM 票据 b WHERE b.入库单编号 = "
         "w.票据入库单编号 AND b.票据编号 = w.发票号码)"},
        {"ledger row of nobody", "WYZJ WHERE ZH_ID IS NULL AND DJ_ID IS NULL AND CW_ID IS NULL"},
        {"attachment of a voucher that does not exist",
         "收入凭证附件清单 WHERE 凭证ID NOT IN (SELECT ID FROM 收入凭证)"},
        {"bill exchanged internally whose new bill does not name it",
         "票据 a WHERE a.内换日期 IS NOT NULL AND NOT EXISTS (SELECT 1 FROM 票据 b WHERE b.入库单编号 = "
         "a.对应调换票据入库单 AND b.票据编号 = a.内换票据编号 AND b.被换票入库单编号 = a.入库单编号 AND "
         "b.被换票票据编号 = a.票据编号)"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(CountOf(SmallDemo(), c.countSql), 0) << c.countSql;
    }
}

// The default demo database, which a user runs the reports on.
sqlite3* DefaultDemo() {
    static TempDir dir;
    static sqlite3* db = [] {
        sqlite3* opened = nullptr;
        WriteDemoDatabase(dir.File("default.db"), {});
        sqlite3_open_v2(dir.File("default.db").c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
        return opened;
    }();
    return db;
}

// Both demos again with their books moved to end in November 2026: every date eleven months on.
constexpr int kMovedMonths = 11;
sqlite3* MovedDemo(int invoices) {
    static TempDir dir;
    const std::string file = dir.File("moved" + std::to_string(invoices) + ".db");
    if (!std::filesystem::exists(file))
        WriteDemoDatabase(file, {.invoices = invoices, .lastYear = 2026, .lastMonth = 11});
    sqlite3* opened = nullptr;
    sqlite3_open_v2(file.c_str(), &opened, SQLITE_OPEN_READONLY, nullptr);
    return opened; // one per size for the program's life
}
sqlite3* SmallMovedDemo() {
    static sqlite3* db = MovedDemo(kSmallDemo);
    return db;
}
sqlite3* DefaultMovedDemo() {
    static sqlite3* db = MovedDemo(DemoOptions{}.invoices);
    return db;
}

// A demo database and how far its books are moved from 2024-01 .. 2025-12.
struct Books {
    const char* name;
    sqlite3* db;
    int movedMonths;
};

std::vector<Books> EveryDemo() {
    return {{"small demo", SmallDemo(), 0},
            {"default demo", DefaultDemo(), 0},
            {"small demo moved", SmallMovedDemo(), kMovedMonths},
            {"default demo moved", DefaultMovedDemo(), kMovedMonths}};
}

// "yyyy-mm-dd" of the first or last day of a month counted as year * 12 + month - 1.
std::string MonthDay(int monthIndex, bool last) {
    const int y = monthIndex / 12, m = monthIndex % 12 + 1;
    const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
    const int days[] = {31, leap ? 29 : 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d", y, m, last ? days[m - 1] : 1);
    return text;
}

// A department and a year of the books a user would pick in a detail report: the calendar year,
// or the twelve months it became where the books were moved.
struct Pick {
    const char* dept;
    const char* year;
};

// What a report shows for a pick: a counting statement with {dept}, and {first} and {last}, the
// first and last day of the pick's year.
struct Situation {
    const char* why;
    std::string countSql; // must count at least one row for every pick
};

std::string Filled(std::string sql, const Pick& pick, int movedMonths) {
    const int january = std::stoi(pick.year) * 12 + movedMonths;
    const std::pair<const char*, std::string> keys[] = {{"{dept}", pick.dept},
                                                        {"{first}", MonthDay(january, false)},
                                                        {"{last}", MonthDay(january + 11, true)}};
    for (const auto& [key, value] : keys)
        for (std::size_t at = sql.find(key); at != std::string::npos; at = sql.find(key, at))
            sql.replace(at, std::string(key).size(), value);
    return sql;
}

void ExpectEverySituationForEveryPick(const std::vector<Pick>& picks,
                                      const std::vector<Situation>& situations) {
    for (const Books& books : EveryDemo())
        for (const Pick& pick : picks)
            for (const Situation& s : situations) {
                SCOPED_TRACE(std::string(books.name) + ", " + pick.dept + " in " + pick.year + ": " + s.why);
                const std::string sql = Filled(s.countSql, pick, books.movedMonths);
                EXPECT_GT(CountOf(books.db, sql), 0) << sql;
            }
}

// Bills of the pick's department invoiced in its year, and those of them still open at the
// year's end: not voided, not exchanged, not paid by 12-31.
const std::string kIssuedInYear =
    "b.开票部门编号 = '{dept}' AND substr(b.开票日期, 1, 10) BETWEEN '{first}' AND '{last}'";
const std::string kOpenAtYearEnd =
    kIssuedInYear + " AND b.作废日期 IS NULL AND b.内换日期 IS NULL AND (b.收款日期 IS NULL OR "
                    "substr(b.收款日期, 1, 10) > '{last}')";
const std::string kParkingLine =
    "票据开票数据 l INNER JOIN SetupSFXM ON l.收费项目代号 = DH WHERE l.入库单编号 = b.入库单编号 AND "
    "l.票据编号 = b.票据编号 AND 收费类别 LIKE '%停车%'";

TEST(DemoReports, PreInvoiceDetailOfEachYearIsFullForEstatesAndTheCarPark) {
    const std::vector<Situation> situations = {
        {"open bill paid in a later year", "票据 b WHERE " + kOpenAtYearEnd + " AND b.收款日期 IS NOT NULL"},
        {"open bill never paid", "票据 b WHERE " + kOpenAtYearEnd + " AND b.收款日期 IS NULL"},
        {"bill paid within the year",
         "票据 b WHERE " + kIssuedInYear +
             " AND b.作废日期 IS NULL AND substr(b.收款日期, 1, 10) BETWEEN '{first}' AND '{last}'"},
        {"unpaid bill voided",
         "票据 b WHERE " + kIssuedInYear + " AND b.作废日期 IS NOT NULL AND b.收款日期 IS NULL"},
        {"open bill exchanged internally, its open new bill naming it",
         "票据 a INNER JOIN 票据 b ON b.入库单编号 = a.对应调换票据入库单 AND b.票据编号 = a.内换票据编号 "
         "WHERE " +
             kOpenAtYearEnd +
             " AND a.内换日期 IS NOT NULL AND substr(a.开票日期, 1, 10) BETWEEN '{first}' AND '{last}' AND "
             "(a.收款日期 IS NULL OR "
             "substr(a.收款日期, 1, 10) > '{last}') AND b.被换票入库单编号 = a.入库单编号 AND "
             "b.被换票票据编号 = a.票据编号"},
        {"open bill with lines of two parking items (two rows of the split table)",
         "(SELECT 1 FROM 票据 b INNER JOIN 票据开票数据 l ON l.入库单编号 = b.入库单编号 AND l.票据编号 = "
         "b.票据编号 INNER JOIN SetupSFXM ON l.收费项目代号 = DH WHERE " +
             kOpenAtYearEnd + " AND 收费类别 LIKE '%停车%' GROUP BY b.ID HAVING COUNT(DISTINCT DH) > 1)"},
        {"invoice line without tax on an open bill",
         "票据开票数据 l INNER JOIN 票据 b ON b.ID = l.票据id WHERE " + kOpenAtYearEnd +
             " AND l.税额 IS NULL AND " + TypeOf("b") + " <> '收据'"},
        {"open 全电发票 replacing its department's bill of code 01",
         "票据 b INNER JOIN 票据 a ON a.入库单编号 = b.被换票入库单编号 AND a.票据编号 = b.被换票票据编号 "
         "WHERE " +
             kOpenAtYearEnd + " AND a.开票部门编号 = b.开票部门编号 AND a.发票代码 = '01' AND " +
             TypeOf("b") + " = '全电发票'"},
    };
    ExpectEverySituationForEveryPick({{"010101", "2024"},
                                      {"010101", "2025"},
                                      {"010102", "2024"},
                                      {"010102", "2025"},
                                      {"010201", "2024"},
                                      {"010201", "2025"},
                                      {"0104", "2024"},
                                      {"0104", "2025"}},
                                     situations);
}

TEST(DemoReports, ParkingFeeDetailOfEachYearFoldsBatchesOfTheCarParksAndEstates) {
    // Bills of one lot collected at one time (the report's rows), of parking items.
    const std::string batches =
        "(SELECT b.入库单编号 AS lot, b.收款日期 AS paid, COUNT(*) AS n, MAX(CAST(substr(b.票据编号, -10) AS "
        "INTEGER)) - MIN(CAST(substr(b.票据编号, -10) AS INTEGER)) AS span, SUM(substr(b.开票日期, 1, 10) "
        "BETWEEN '{first}' AND '{last}') AS issuedInYear, SUM(b.交易订单号 IS NOT NULL) AS orders, "
        "SUM(b.收款方式 = '微信') AS "
        "wechat "
        "FROM 票据 b WHERE b.开票部门编号 = '{dept}' AND substr(b.收款日期, 1, 10) BETWEEN '{first}' AND "
        "'{last}' AND b.作废日期 "
        "IS "
        "NULL AND b.内换日期 IS NULL AND EXISTS (SELECT 1 FROM " +
        kParkingLine + ") GROUP BY b.入库单编号, b.收款日期 HAVING COUNT(*) > 1)";
    const std::vector<Situation> situations = {
        {"three or more bills of one run of numbers, invoiced in the year, collected at one time of day",
         batches + " WHERE n >= 3 AND span = n - 1 AND issuedInYear = n AND length(paid) > 10"},
        {"batch paid online, each bill with its order number", batches + " WHERE orders = n"},
        {"batch recorded as 微信, which the mode list calls 微信支付", batches + " WHERE wechat = n"},
        {"one lot collected at two times of one day",
         "(SELECT 1 FROM " + batches + " GROUP BY lot, substr(paid, 1, 10) HAVING COUNT(*) > 1)"},
        {"batches by several modes", "SELECT COUNT(DISTINCT b.收款方式) - 1 FROM 票据 b INNER JOIN " +
                                         batches + " x ON x.lot = b.入库单编号 AND x.paid = b.收款日期"},
    };
    ExpectEverySituationForEveryPick({{"0104", "2024"},
                                      {"0104", "2025"},
                                      {"0105", "2024"},
                                      {"010101", "2024"},
                                      {"010101", "2025"},
                                      {"010102", "2024"},
                                      {"010102", "2025"},
                                      {"010201", "2024"},
                                      {"010201", "2025"}},
                                     situations);
}

TEST(DemoReports, InvoiceDetailTakesItsMaintenanceFundFormInBothYears) {
    ExpectEverySituationForEveryPick(
        {{"010101", "2024"}, {"010101", "2025"}, {"010201", "2024"}, {"010201", "2025"}},
        {{"bill with a 维修基金 line",
          "票据开票数据 l INNER JOIN 票据 b ON b.ID = l.票据id INNER JOIN SetupSFXM ON "
          "l.收费项目代号 = DH WHERE XM = '维修基金' AND " +
              kIssuedInYear}});
}

// The pre-invoice summary over a year lists every office it offers with pre-invoiced lines: an
// invoice of the year, not returned, voided or exchanged, paid after the year or unpaid and
// flagged 预开, on an item that is set up.
TEST(DemoReports, PreInvoiceSummaryOfEachYearFillsEveryListedOffice) {
    // The default demo, which the program and demo-db write, as made and moved; the small one is
    // too small for it.
    for (const Books& books : EveryDemo()) {
        if (books.db == SmallDemo() || books.db == SmallMovedDemo()) continue;
        for (const char* year : {"2024", "2025"}) {
            SCOPED_TRACE(std::string(books.name) + ", " + year);
            const std::string offices = "设置管理处 o WHERE o.终止日期 IS NULL";
            EXPECT_GE(CountOf(books.db, offices), 10);
            const std::string unlisted =
                " AND NOT EXISTS (SELECT 1 FROM 票据 b INNER JOIN 票据开票数据 l ON l.票据id = b.ID INNER "
                "JOIN "
                "SetupSFXM ON l.收费项目代号 = DH WHERE b.开票部门编号 = o.对应部门代号 AND "
                "substr(b.开票日期, 1, "
                "10) BETWEEN '{first}' AND '{last}' AND b.退票日期 IS NULL AND b.作废日期 IS NULL AND "
                "b.内换日期 IS "
                "NULL AND ((b.收款日期 IS NULL AND b.预开 = 1) OR substr(b.收款日期, 1, 10) > '{last}'))";
            EXPECT_EQ(CountOf(books.db, Filled(offices + unlisted, {"", year}, books.movedMonths)), 0);
        }
    }
}

// Moved books span the two years before their last month, say so in the file, and move the dates
// of the catalogues and the cut-off day with the bills.
TEST(DemoDatabase, MovedBooksEndInTheirMonthAndMoveEveryDate) {
    struct Case {
        const char* why;
        sqlite3* db;
        std::string countSql; // must count exactly one
    };
    const Case cases[] = {
        {"first bills in 2024-12", SmallMovedDemo(),
         "SELECT MIN(substr(开票日期, 1, 7)) = '2024-12' FROM 票据"},
        {"last bills in 2026-11", SmallMovedDemo(),
         "SELECT MAX(substr(开票日期, 1, 7)) = '2026-11' FROM 票据"},
        {"unmoved: 2024-01", SmallDemo(), "SELECT MIN(substr(开票日期, 1, 7)) = '2024-01' FROM 票据"},
        {"unmoved: 2025-12", SmallDemo(), "SELECT MAX(substr(开票日期, 1, 7)) = '2025-12' FROM 票据"},
        {"a link ended 2024-03-31 ends on February's last day", SmallMovedDemo(),
         "上级部门new WHERE 终止日期 = '2025-02-28'"},
        {"unmoved, it ends 2024-03-31", SmallDemo(), "上级部门new WHERE 终止日期 = '2024-03-31'"},
        {"nothing paid or approved after the cut-off day moved to 2026-12-10", SmallMovedDemo(),
         "SELECT (SELECT COUNT(*) FROM 票据 WHERE 收款日期 >= '2026-12-11' OR 退票日期 >= '2026-12-11') + "
         "(SELECT COUNT(*) FROM 收入凭证 WHERE 审批日期 >= '2026-12-11') = 0"},
        {"month lists of the lines moved too", SmallMovedDemo(),
         "SELECT MAX(substr(摘要, 1, 6)) > '202512' FROM 票据开票数据 WHERE 摘要 GLOB "
         "'[0-9][0-9][0-9][0-9][0-9][0-9]*'"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(CountOf(c.db, c.countSql), 1) << c.countSql;
    }
}

TEST(DemoDatabase, TheBooksLastMonthIsStampedIntoTheFile) {
    TempDir dir;
    WriteDemoDatabase(dir.File("a.db"), {.invoices = kSmallDemo, .lastYear = 2026, .lastMonth = 11});
    WriteDemoDatabase(dir.File("b.db"), {.invoices = kSmallDemo});
    EXPECT_EQ(ReadDemoLastMonth(dir.File("a.db")), 202611);
    EXPECT_EQ(ReadDemoLastMonth(dir.File("b.db")), 202512);
    EXPECT_EQ(ReadDemoLastMonth(dir.File("none.db")), 0);
}

} // namespace
} // namespace quillon
