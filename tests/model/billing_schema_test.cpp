// The billing schema: every table and column the reports name, the column traits the reports
// and the database layer rely on, and the test database fixture built on it.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "model/billing_schema.h"
#include "support/test_billing_db.h"

namespace quillon {
namespace {

// An in-memory database with the schema, closed on scope exit.
class MemoryDb {
public:
    MemoryDb() {
        sqlite3_open(":memory:", &db_);
        CreateBillingSchema(db_);
    }
    ~MemoryDb() { sqlite3_close(db_); }
    sqlite3* get() const { return db_; }

    // Runs statements; returns SQLite's message, empty on success.
    std::string Exec(const std::string& sql) {
        char* message = nullptr;
        if (sqlite3_exec(db_, sql.c_str(), nullptr, nullptr, &message) == SQLITE_OK) return "";
        std::string text = message ? message : "failed";
        sqlite3_free(message);
        return text;
    }
    // First column of every row, as text ("NULL" for NULL).
    std::vector<std::string> Column(const std::string& sql) {
        std::vector<std::string> out;
        sqlite3_stmt* s = nullptr;
        if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &s, nullptr) != SQLITE_OK) {
            ADD_FAILURE() << sqlite3_errmsg(db_) << " in: " << sql;
            return out;
        }
        while (sqlite3_step(s) == SQLITE_ROW) {
            const auto* p = sqlite3_column_text(s, 0);
            out.push_back(p ? reinterpret_cast<const char*>(p) : "NULL");
        }
        sqlite3_finalize(s);
        return out;
    }

private:
    sqlite3* db_ = nullptr;
};

struct ColumnInfo {
    std::string type;
    bool notNull = false;
};

ColumnInfo InfoOf(MemoryDb& db, const std::string& table, const std::string& column) {
    ColumnInfo info;
    sqlite3_stmt* s = nullptr;
    sqlite3_prepare_v2(db.get(), ("PRAGMA table_info(" + table + ")").c_str(), -1, &s, nullptr);
    while (sqlite3_step(s) == SQLITE_ROW) {
        if (column == reinterpret_cast<const char*>(sqlite3_column_text(s, 1))) {
            info.type = reinterpret_cast<const char*>(sqlite3_column_text(s, 2));
            info.notNull = sqlite3_column_int(s, 3) != 0;
        }
    }
    sqlite3_finalize(s);
    return info;
}

TEST(BillingSchema, HoldsEveryTableWithExactlyItsColumns) {
    struct Case {
        const char* table;
        std::set<std::string> columns;
    };
    const Case cases[] = {
        {"票据入库单", {"入库单编号", "票据类型编号"}},
        {"票据类型", {"票据类型代号", "票据类型", "定额", "类别"}},
        {"票据",
         {"ID",
          "入库单编号",
          "票据编号",
          "开票部门编号",
          "开票日期",
          "收款日期",
          "预开",
          "作废日期",
          "退票日期",
          "内换日期",
          "内换票据编号",
          "对应调换票据入库单",
          "被换票票据编号",
          "被换票入库单编号",
          "金额",
          "收款方式",
          "付款人",
          "地址",
          "收款人",
          "开票人",
          "交易订单号",
          "发票代码"}},
        {"票据开票数据",
         {"票据id", "入库单编号", "票据编号", "收费项目代号", "项目", "摘要", "金额", "税额", "税率"}},
        {"SetupSFXM", {"DH", "XM", "收费类别", "显示名称", "税率"}},
        {"税控盘收费项目设置", {"DH", "税率", "管理处"}},
        {"职能部门new", {"职能部门编号", "职能部门名称", "终止日期"}},
        {"上级部门new", {"职能部门编号", "上级部门编号", "终止日期"}},
        {"设置管理处", {"GYD_DH", "GYD_NAME", "对应部门代号", "终止日期"}},
        {"WYZJ",
         {"ZH_ID", "DJ_ID", "CW_ID", "ZJ_LX", "zj_cny", "zj_je", "收入", "zj_skrq", "收款人", "收款方式",
          "票据入库单编号", "发票号码"}},
        {"楼表", {"L_id", "管理处", "地址1", "地址2", "地址3", "地址4", "字1", "字2", "字3", "字4"}},
        {"室表", {"S_ID", "L_id", "室"}},
        {"业主表", {"ZH_ID", "S_ID", "姓名"}},
        {"车位申请登记表", {"登记ID", "车主姓名", "管理处"}},
        {"车位说明表", {"ID", "产权人", "管理处"}},
        {"收入凭证", {"ID", "审批日期", "审批同意", "收款方式"}},
        {"收入凭证附件清单", {"凭证ID", "票据本编号", "票据编号", "金额"}},
        {"收款方式列表", {"收款方式"}},
        {"岗位权限设置", {"id", "组代号", "岗位代号", "授权"}},
        {"GroupPrivilege", {"GroupID", "FormName", "Popedom", "Memo"}},
    };
    MemoryDb db;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.table);
        const auto names = db.Column(std::string("SELECT name FROM pragma_table_info('") + c.table + "')");
        EXPECT_EQ(std::set<std::string>(names.begin(), names.end()), c.columns);
    }
    EXPECT_EQ(db.Column("SELECT COUNT(*) FROM sqlite_master WHERE type = 'table'"),
              std::vector<std::string>{std::to_string(std::size(cases))});
}

TEST(BillingSchema, ColumnTypesAndNullability) {
    struct Case {
        const char* table;
        const char* column;
        const char* typeHolds; // dates must declare DATE: the database layer turns them into dates
        bool notNull;
    };
    const Case cases[] = {
        {"票据", "开票日期", "DATE", true},
        {"票据", "收款日期", "DATE", false},
        {"票据", "作废日期", "DATE", false},
        {"票据", "退票日期", "DATE", false},
        {"票据", "内换日期", "DATE", false},
        {"票据", "内换票据编号", "TEXT", false},
        {"票据", "被换票票据编号", "TEXT", false},
        {"票据", "被换票入库单编号", "TEXT", false},
        {"票据", "发票代码", "TEXT", false},
        {"票据", "交易订单号", "TEXT", false},
        {"票据", "金额", "REAL", true},
        {"票据", "预开", "INTEGER", true},
        {"票据", "入库单编号", "TEXT", true},
        {"票据", "开票部门编号", "TEXT", true},
        {"票据开票数据", "金额", "REAL", true},
        {"票据开票数据", "税额", "REAL", false},
        {"票据开票数据", "税率", "REAL", true},
        {"票据类型", "定额", "INTEGER", true},
        {"职能部门new", "终止日期", "DATE", false},
        {"上级部门new", "终止日期", "DATE", false},
        {"设置管理处", "终止日期", "DATE", false},
        {"WYZJ", "ZH_ID", "INTEGER", false},
        {"WYZJ", "zj_skrq", "DATE", false},
        {"WYZJ", "zj_je", "REAL", true},
        {"收入凭证", "审批日期", "DATE", false},
        {"收入凭证", "审批同意", "INTEGER", true},
        {"收入凭证附件清单", "金额", "REAL", true},
    };
    MemoryDb db;
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.table) + "." + c.column);
        const ColumnInfo info = InfoOf(db, c.table, c.column);
        EXPECT_NE(info.type.find(c.typeHolds), std::string::npos) << info.type;
        EXPECT_EQ(info.notNull, c.notNull);
    }
}

TEST(BillingSchema, TextComparesWithoutCaseAsOnTheServer) {
    MemoryDb db;
    ASSERT_EQ(db.Exec("INSERT INTO SetupSFXM (DH, XM) VALUES ('wyf', '物业费');"
                      "INSERT INTO 税控盘收费项目设置 (DH, 税率, 管理处) VALUES ('WYF', 6, 'g1');"),
              "");
    EXPECT_EQ(db.Column("SELECT COUNT(*) FROM SetupSFXM INNER JOIN 税控盘收费项目设置 "
                        "ON SetupSFXM.DH = 税控盘收费项目设置.DH WHERE 管理处 = 'G1'"),
              std::vector<std::string>{"1"});
}

TEST(BillingSchema, WholeAmountsStayReal) {
    // A NUMERIC column would hand back 106 as an integer and 106.5 as a double.
    MemoryDb db;
    ASSERT_EQ(db.Exec("INSERT INTO 票据开票数据 (票据id, 入库单编号, 票据编号, 收费项目代号, 金额, 税额) "
                      "VALUES (1, 'L1', '0001', 'WYF', 106, 6)"),
              "");
    EXPECT_EQ(db.Column("SELECT typeof(金额) || ',' || typeof(税额) FROM 票据开票数据"),
              std::vector<std::string>{"real,real"});
}

TEST(BillingSchema, PaymentModesComeBackInStoredOrder) {
    MemoryDb db;
    ASSERT_EQ(
        db.Exec("INSERT INTO 收款方式列表 VALUES ('现金'); INSERT INTO 收款方式列表 VALUES ('微信支付');"
                "INSERT INTO 收款方式列表 VALUES ('POS刷卡');"),
        "");
    EXPECT_EQ(db.Column("Select * From 收款方式列表"),
              (std::vector<std::string>{"现金", "微信支付", "POS刷卡"}));
}

TEST(BillingSchema, KeysThatHoldAndKeysThatDoNot) {
    struct Case {
        const char* why;
        const char* sql;
        bool accepted;
    };
    const Case cases[] = {
        {"a number twice in one lot",
         "INSERT INTO 票据 (入库单编号, 票据编号, 开票部门编号, 开票日期) VALUES ('L1', '7', 'D', "
         "'2024-01-01')",
         false},
        {"the number again in another lot",
         "INSERT INTO 票据 (入库单编号, 票据编号, 开票部门编号, 开票日期) VALUES ('L2', '7', 'D', "
         "'2024-01-01')",
         true},
        {"a bill without date of issue",
         "INSERT INTO 票据 (入库单编号, 票据编号, 开票部门编号) VALUES ('L3', '1', 'D')", false},
        {"one item at a second rate in the same office",
         "INSERT INTO 税控盘收费项目设置 (DH, 税率, 管理处) VALUES ('ZJ', 5, 'G1')", true},
        {"a department with a second parent link", "INSERT INTO 上级部门new VALUES ('0101', '02', NULL)",
         true},
        {"an office code twice",
         "INSERT INTO 设置管理处 (GYD_DH, GYD_NAME, 对应部门代号) VALUES ('g1', 'x', 'D')", false},
    };
    MemoryDb db;
    ASSERT_EQ(db.Exec("INSERT INTO 票据 (入库单编号, 票据编号, 开票部门编号, 开票日期) VALUES ('L1', '7', "
                      "'D', '2024-01-01');"
                      "INSERT INTO 税控盘收费项目设置 (DH, 税率, 管理处) VALUES ('ZJ', 9, 'G1');"
                      "INSERT INTO 上级部门new VALUES ('0101', '01', NULL);"
                      "INSERT INTO 设置管理处 (GYD_DH, GYD_NAME, 对应部门代号) VALUES ('G1', 'x', 'D');"),
              "");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(db.Exec(c.sql).empty(), c.accepted);
    }
}

TEST(BillingSchema, CreatingTwiceFailsWithTheEnginesMessage) {
    MemoryDb db;
    try {
        CreateBillingSchema(db.get());
        FAIL() << "no error";
    } catch (const std::runtime_error& e) {
        EXPECT_NE(std::string(e.what()).find("already exists"), std::string::npos) << e.what();
    }
}

TEST(TestBillingDb, InvoiceLinesJoinByIdAndByLotAndNumber) {
    TestBillingDb db;
    db.Invoice({.lot = "L1",
                .number = "0001",
                .dept = "0101",
                .issued = "2024-03-05",
                .paid = "2024-03-05",
                .lines = {{.item = "WYF", .amount = 106.0, .tax = 6.0, .rate = 0.06},
                          {.item = "SF", .amount = 20.5, .rate = 0.03}}});
    db.Invoice({.lot = "L2", .number = "0001", .dept = "0101", .issued = "2024-03-06", .amount = -1.0});
    const std::string first = std::to_string(db.LastInvoiceId() - 1);
    EXPECT_EQ(
        db.QueryText("SELECT COUNT(*) FROM 票据 INNER JOIN 票据开票数据 ON 票据.ID = 票据开票数据.票据id "
                     "WHERE 票据.ID = " +
                     first),
        "2");
    EXPECT_EQ(db.QueryText(
                  "SELECT COUNT(*) FROM 票据 INNER JOIN 票据开票数据 ON 票据开票数据.入库单编号 = "
                  "票据.入库单编号 AND 票据开票数据.票据编号 = 票据.票据编号 WHERE 票据.入库单编号 = 'L1'"),
              "2");
    EXPECT_EQ(db.QueryText("SELECT 金额 FROM 票据 WHERE 入库单编号 = 'L1'"), "126.5");
    EXPECT_EQ(db.QueryText("SELECT 金额 FROM 票据 WHERE 入库单编号 = 'L2'"), "-1.0");
    EXPECT_EQ(db.QueryText("SELECT COALESCE(税额, 'null') FROM 票据开票数据 WHERE 收费项目代号 = 'SF'"),
              "null");
    EXPECT_EQ(
        db.QueryText("SELECT COALESCE(收款日期, 'null') || ',' || COALESCE(地址, 'null') || ',' || 收款方式 "
                     "FROM 票据 WHERE 入库单编号 = 'L2'"),
        "null,null,现金");
}

TEST(TestBillingDb, OptionalTextsCanBeCleared) {
    TestBillingDb db;
    db.Invoice({.lot = "L1",
                .number = "1",
                .dept = "01",
                .issued = "2024-01-01",
                .mode = std::nullopt,
                .payer = std::nullopt});
    EXPECT_EQ(db.QueryText("SELECT (收款方式 IS NULL) || (付款人 IS NULL) || (开票人 IS NULL) FROM 票据"),
              "110");
}

TEST(TestBillingDb, DepartmentWithParentAddsItsLink) {
    TestBillingDb db;
    db.Department("01", "总部").Department("0101", "一区", "01");
    db.Department({.code = "0102", .name = "二区", .ended = "2024-06-30"});
    db.ParentLink({.dept = "0102", .parent = "01", .ended = "2024-06-30"});
    EXPECT_EQ(
        db.QueryText(
            "SELECT group_concat(职能部门编号 || '>' || 上级部门编号 || ':' || COALESCE(终止日期, '-'), ' ') "
            "FROM (SELECT * FROM 上级部门new ORDER BY 职能部门编号)"),
        "0101>01:- 0102>01:2024-06-30");
    EXPECT_EQ(db.QueryText("SELECT 终止日期 FROM 职能部门new WHERE 职能部门编号 = '0102'"), "2024-06-30");
}

TEST(TestBillingDb, FileLivesAsLongAsTheFixture) {
    std::string path;
    {
        TestBillingDb db;
        path = db.Path();
        EXPECT_TRUE(std::filesystem::exists(path));
        EXPECT_EQ(db.ConnectionText(), "Provider=SQLite;Data Source=" + path);
        EXPECT_THROW(db.Exec("INSERT INTO 无此表 VALUES (1)"), std::runtime_error);
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

} // namespace
} // namespace quillon
