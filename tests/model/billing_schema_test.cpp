// The billing schema: every table and column the reports name, and the column traits the reports
// and the database layer rely on. Built through the fixture every report test uses.
#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>

#include "support/test_billing_db.h"

namespace quillon {
namespace {

std::set<std::string> Words(const std::string& text) {
    std::istringstream in(text);
    return {std::istream_iterator<std::string>(in), std::istream_iterator<std::string>()};
}

bool Accepts(TestBillingDb& db, const std::string& sql) {
    try {
        db.Exec(sql);
        return true;
    } catch (const std::runtime_error&) {
        return false;
    }
}

TEST(BillingSchema, HoldsEveryTableWithExactlyItsColumns) {
    struct Case {
        const char* table;
        const char* columns;
    };
    const Case cases[] = {
        {"票据入库单", "入库单编号 票据类型编号"},
        {"票据类型", "票据类型代号 票据类型 定额 类别"},
        {"票据", "ID 入库单编号 票据编号 开票部门编号 开票日期 收款日期 预开 作废日期 退票日期 内换日期 "
                 "内换票据编号 对应调换票据入库单 被换票票据编号 被换票入库单编号 金额 收款方式 付款人 地址 "
                 "收款人 开票人 交易订单号 发票代码"},
        {"票据开票数据", "票据id 入库单编号 票据编号 收费项目代号 项目 摘要 金额 税额 税率"},
        {"SetupSFXM", "DH XM 收费类别 显示名称 税率"},
        {"税控盘收费项目设置", "DH 税率 管理处"},
        {"职能部门new", "职能部门编号 职能部门名称 终止日期"},
        {"上级部门new", "职能部门编号 上级部门编号 终止日期"},
        {"设置管理处", "GYD_DH GYD_NAME 对应部门代号 终止日期"},
        {"WYZJ", "ZH_ID DJ_ID CW_ID ZJ_LX zj_cny zj_je 收入 zj_skrq 收款人 收款方式 票据入库单编号 发票号码"},
        {"楼表", "L_id 管理处 地址1 地址2 地址3 地址4 字1 字2 字3 字4"},
        {"室表", "S_ID L_id 室"},
        {"业主表", "ZH_ID S_ID 姓名"},
        {"车位申请登记表", "登记ID 车主姓名 管理处"},
        {"车位说明表", "ID 产权人 管理处"},
        {"收入凭证", "ID 审批日期 审批同意 收款方式"},
        {"收入凭证附件清单", "凭证ID 票据本编号 票据编号 金额"},
        {"收款方式列表", "收款方式"},
        {"岗位权限设置", "id 组代号 岗位代号 授权"},
        {"GroupPrivilege", "GroupID FormName Popedom Memo"},
    };
    TestBillingDb db;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.table);
        EXPECT_EQ(Words(db.QueryText(std::string("SELECT group_concat(name, ' ') FROM pragma_table_info('") +
                                     c.table + "')")),
                  Words(c.columns));
    }
    EXPECT_EQ(db.QueryText("SELECT COUNT(*) FROM sqlite_master WHERE type = 'table'"),
              std::to_string(std::size(cases)));
}

TEST(BillingSchema, ColumnTypesAndNullability) {
    // "column TYPE" pairs; the declared type must hold TYPE (dates must declare DATE: the database
    // layer turns them into dates), and a "!" after it means NOT NULL.
    struct Case {
        const char* table;
        const char* columns;
    };
    const Case cases[] = {
        {"票据", "开票日期 DATE!, 收款日期 DATE, 作废日期 DATE, 退票日期 DATE, 内换日期 DATE, "
                 "内换票据编号 TEXT, 被换票票据编号 TEXT, 被换票入库单编号 TEXT, 发票代码 TEXT, "
                 "交易订单号 TEXT, 金额 REAL!, 预开 INTEGER!, 入库单编号 TEXT!, 开票部门编号 TEXT!"},
        {"票据开票数据", "金额 REAL!, 税额 REAL, 税率 REAL!"},
        {"票据类型", "定额 INTEGER!"},
        {"职能部门new", "终止日期 DATE"},
        {"上级部门new", "终止日期 DATE"},
        {"设置管理处", "终止日期 DATE"},
        {"WYZJ", "ZH_ID INTEGER, zj_skrq DATE, zj_je REAL!"},
        {"收入凭证", "审批日期 DATE, 审批同意 INTEGER!"},
        {"收入凭证附件清单", "金额 REAL!"},
    };
    TestBillingDb db;
    for (const auto& c : cases) {
        std::istringstream in(c.columns);
        std::string column, typeHolds;
        while (in >> column >> typeHolds) {
            if (typeHolds.back() == ',') typeHolds.pop_back();
            const bool notNull = typeHolds.back() == '!';
            if (notNull) typeHolds.pop_back();
            SCOPED_TRACE(std::string(c.table) + "." + column);
            const std::string where =
                std::string(" FROM pragma_table_info('") + c.table + "') WHERE name = '" + column + "'";
            const std::string type = db.QueryText("SELECT type" + where);
            EXPECT_NE(type.find(typeHolds), std::string::npos) << type;
            EXPECT_EQ(db.QueryText("SELECT \"notnull\"" + where), notNull ? "1" : "0");
        }
    }
}

TEST(BillingSchema, TextComparesWithoutCaseAndWholeAmountsStayReal) {
    TestBillingDb db;
    db.Exec("INSERT INTO SetupSFXM (DH, XM) VALUES ('wyf', '物业费');"
            "INSERT INTO 税控盘收费项目设置 (DH, 税率, 管理处) VALUES ('WYF', 6, 'g1');"
            "INSERT INTO 票据开票数据 (票据id, 入库单编号, 票据编号, 收费项目代号, 金额, 税额) "
            "VALUES (1, 'L1', '0001', 'WYF', 106, 6)");
    EXPECT_EQ(db.QueryText("SELECT COUNT(*) FROM SetupSFXM INNER JOIN 税控盘收费项目设置 "
                           "ON SetupSFXM.DH = 税控盘收费项目设置.DH WHERE 管理处 = 'G1'"),
              "1")
        << "as on a case-insensitive server collation";
    // A NUMERIC column would hand back 106 as an integer and 106.5 as a double.
    EXPECT_EQ(db.QueryText("SELECT typeof(金额) || ',' || typeof(税额) FROM 票据开票数据"), "real,real");
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
    TestBillingDb db;
    db.Exec("INSERT INTO 票据 (入库单编号, 票据编号, 开票部门编号, 开票日期) VALUES ('L1', '7', 'D', "
            "'2024-01-01');"
            "INSERT INTO 税控盘收费项目设置 (DH, 税率, 管理处) VALUES ('ZJ', 9, 'G1');"
            "INSERT INTO 上级部门new VALUES ('0101', '01', NULL);"
            "INSERT INTO 设置管理处 (GYD_DH, GYD_NAME, 对应部门代号) VALUES ('G1', 'x', 'D');");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Accepts(db, c.sql), c.accepted);
    }
}

} // namespace
} // namespace quillon
