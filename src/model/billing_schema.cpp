// billing_schema.cpp — the billing tables in SQLite's dialect.
//
// Choices that hold for every table:
// - Text is TEXT COLLATE NOCASE, as on a case-insensitive SQL Server collation.
// - Money is REAL. SQL Server's money and decimal reach the program as doubles anyway, and a
//   NUMERIC column would store 106.00 as the integer 106, so one column would hand back integers
//   for some rows and doubles for others.
// - Dates are ISO text in columns whose declared type holds "DATE" ("yyyy-mm-dd", or
//   "yyyy-mm-dd hh:mm:ss" in DATETIME columns); the database layer turns them into dates.
// - NOT NULL wherever the billing system always fills a column; NULL where it carries a meaning
//   (not voided, not received, …) or where the billing system leaves a text empty (an unpaid
//   bill has no mode or taker, a walk-in payer no name or address); the reports read such a
//   NULL as empty text.
// - Defaults for flags and always-filled texts keep hand-written test rows short.
// - No triggers, checks or foreign keys: the reports only read.
#include "model/billing_schema.h"

#include <sqlite3.h>

#include <stdexcept>

namespace quillon {

namespace {

const char* const kSchemaSql = R"SQL(
CREATE TABLE 票据类型 (
    票据类型代号 TEXT COLLATE NOCASE NOT NULL PRIMARY KEY,
    票据类型 TEXT COLLATE NOCASE NOT NULL,
    定额 INTEGER NOT NULL DEFAULT 0,
    类别 TEXT COLLATE NOCASE NOT NULL DEFAULT '发票'
);

CREATE TABLE 票据入库单 (
    入库单编号 TEXT COLLATE NOCASE NOT NULL PRIMARY KEY,
    票据类型编号 TEXT COLLATE NOCASE NOT NULL
);
CREATE INDEX ix_票据入库单_票据类型编号 ON 票据入库单 (票据类型编号);
CREATE INDEX ix_票据入库单_入库单编号 ON 票据入库单 (入库单编号, 票据类型编号); -- covering the bill's type

CREATE TABLE 票据 (
    ID INTEGER PRIMARY KEY,
    入库单编号 TEXT COLLATE NOCASE NOT NULL,
    票据编号 TEXT COLLATE NOCASE NOT NULL,
    开票部门编号 TEXT COLLATE NOCASE NOT NULL,
    开票日期 DATETIME NOT NULL,
    收款日期 DATETIME,
    预开 INTEGER NOT NULL DEFAULT 0,
    作废日期 DATE,
    退票日期 DATE,
    内换日期 DATE,
    内换票据编号 TEXT COLLATE NOCASE,
    对应调换票据入库单 TEXT COLLATE NOCASE,
    被换票票据编号 TEXT COLLATE NOCASE,
    被换票入库单编号 TEXT COLLATE NOCASE,
    金额 REAL NOT NULL DEFAULT 0,
    收款方式 TEXT COLLATE NOCASE,
    付款人 TEXT COLLATE NOCASE,
    地址 TEXT COLLATE NOCASE,
    收款人 TEXT COLLATE NOCASE,
    开票人 TEXT COLLATE NOCASE,
    交易订单号 TEXT COLLATE NOCASE,
    发票代码 TEXT COLLATE NOCASE,
    UNIQUE (入库单编号, 票据编号)
);
CREATE INDEX ix_票据_票据编号 ON 票据 (票据编号);
-- The reports filter a department by a range of invoice or collection dates.
CREATE INDEX ix_票据_开票部门编号 ON 票据 (开票部门编号, 开票日期);
CREATE INDEX ix_票据_收款日期 ON 票据 (开票部门编号, 收款日期);
CREATE INDEX ix_票据_内换票据编号 ON 票据 (对应调换票据入库单, 内换票据编号);
-- Exchanged bills are few: indexed alone, so that "Is Null" on these columns never looks cheap.
CREATE INDEX ix_票据_被换票票据编号 ON 票据 (被换票入库单编号, 被换票票据编号) WHERE 被换票票据编号 IS NOT NULL;

CREATE TABLE 票据开票数据 (
    票据id INTEGER NOT NULL,
    入库单编号 TEXT COLLATE NOCASE NOT NULL,
    票据编号 TEXT COLLATE NOCASE NOT NULL,
    收费项目代号 TEXT COLLATE NOCASE NOT NULL,
    项目 TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    摘要 TEXT COLLATE NOCASE,
    金额 REAL NOT NULL DEFAULT 0,
    税额 REAL,
    税率 REAL NOT NULL DEFAULT 0
);
CREATE INDEX ix_票据开票数据_票据id ON 票据开票数据 (票据id);
-- Covering: the reports sum the lines of each bill they find without reading the rows.
CREATE INDEX ix_票据开票数据_入库单编号 ON 票据开票数据 (入库单编号, 票据编号, 收费项目代号, 金额, 税额, 税率);
CREATE INDEX ix_票据开票数据_票据编号 ON 票据开票数据 (票据编号);
CREATE INDEX ix_票据开票数据_收费项目代号 ON 票据开票数据 (收费项目代号);

CREATE TABLE SetupSFXM (
    DH TEXT COLLATE NOCASE NOT NULL PRIMARY KEY,
    XM TEXT COLLATE NOCASE NOT NULL,
    收费类别 TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    显示名称 TEXT COLLATE NOCASE,
    税率 REAL NOT NULL DEFAULT 0
);

-- No key: one item may be set up with two rates for one office, and the reports show both.
CREATE TABLE 税控盘收费项目设置 (
    DH TEXT COLLATE NOCASE NOT NULL,
    税率 REAL NOT NULL DEFAULT 0,
    管理处 TEXT COLLATE NOCASE NOT NULL
);
CREATE INDEX ix_税控盘收费项目设置_DH ON 税控盘收费项目设置 (DH, 管理处, 税率);
CREATE INDEX ix_税控盘收费项目设置_管理处 ON 税控盘收费项目设置 (管理处);

CREATE TABLE 职能部门new (
    职能部门编号 TEXT COLLATE NOCASE NOT NULL PRIMARY KEY,
    职能部门名称 TEXT COLLATE NOCASE NOT NULL,
    终止日期 DATE
);

CREATE TABLE 上级部门new (
    职能部门编号 TEXT COLLATE NOCASE NOT NULL,
    上级部门编号 TEXT COLLATE NOCASE NOT NULL,
    终止日期 DATE
);
CREATE INDEX ix_上级部门new_职能部门编号 ON 上级部门new (职能部门编号);
CREATE INDEX ix_上级部门new_上级部门编号 ON 上级部门new (上级部门编号);

CREATE TABLE 设置管理处 (
    GYD_DH TEXT COLLATE NOCASE NOT NULL PRIMARY KEY,
    GYD_NAME TEXT COLLATE NOCASE NOT NULL,
    对应部门代号 TEXT COLLATE NOCASE NOT NULL,
    终止日期 DATE
);
CREATE INDEX ix_设置管理处_对应部门代号 ON 设置管理处 (对应部门代号);

-- A ledger row belongs to an owner account, a parking registration or a parking space; the
-- other two references stay NULL. Unpaid rows have no receipt date, taker, mode or invoice.
CREATE TABLE WYZJ (
    ZH_ID INTEGER,
    DJ_ID INTEGER,
    CW_ID INTEGER,
    ZJ_LX TEXT COLLATE NOCASE NOT NULL,
    zj_cny TEXT COLLATE NOCASE,
    zj_je REAL NOT NULL DEFAULT 0,
    收入 REAL NOT NULL DEFAULT 0,
    zj_skrq DATE,
    收款人 TEXT COLLATE NOCASE,
    收款方式 TEXT COLLATE NOCASE,
    票据入库单编号 TEXT COLLATE NOCASE,
    发票号码 TEXT COLLATE NOCASE
);
CREATE INDEX ix_WYZJ_ZH_ID ON WYZJ (ZH_ID);
CREATE INDEX ix_WYZJ_DJ_ID ON WYZJ (DJ_ID);
CREATE INDEX ix_WYZJ_CW_ID ON WYZJ (CW_ID);
CREATE INDEX ix_WYZJ_ZJ_LX ON WYZJ (ZJ_LX);
CREATE INDEX ix_WYZJ_票据入库单编号 ON WYZJ (票据入库单编号, 发票号码);

CREATE TABLE 楼表 (
    L_id INTEGER PRIMARY KEY,
    管理处 TEXT COLLATE NOCASE NOT NULL,
    地址1 TEXT COLLATE NOCASE,
    字1 TEXT COLLATE NOCASE,
    地址2 TEXT COLLATE NOCASE,
    字2 TEXT COLLATE NOCASE,
    地址3 TEXT COLLATE NOCASE,
    字3 TEXT COLLATE NOCASE,
    地址4 TEXT COLLATE NOCASE,
    字4 TEXT COLLATE NOCASE
);
CREATE INDEX ix_楼表_管理处 ON 楼表 (管理处);

CREATE TABLE 室表 (
    S_ID INTEGER PRIMARY KEY,
    L_id INTEGER NOT NULL,
    室 TEXT COLLATE NOCASE NOT NULL
);
CREATE INDEX ix_室表_L_id ON 室表 (L_id);

CREATE TABLE 业主表 (
    ZH_ID INTEGER PRIMARY KEY,
    S_ID INTEGER NOT NULL,
    姓名 TEXT COLLATE NOCASE NOT NULL
);
CREATE INDEX ix_业主表_S_ID ON 业主表 (S_ID);

CREATE TABLE 车位申请登记表 (
    登记ID INTEGER PRIMARY KEY,
    车主姓名 TEXT COLLATE NOCASE NOT NULL,
    管理处 TEXT COLLATE NOCASE NOT NULL
);
CREATE INDEX ix_车位申请登记表_管理处 ON 车位申请登记表 (管理处);

CREATE TABLE 车位说明表 (
    ID INTEGER PRIMARY KEY,
    产权人 TEXT COLLATE NOCASE NOT NULL,
    管理处 TEXT COLLATE NOCASE NOT NULL
);
CREATE INDEX ix_车位说明表_管理处 ON 车位说明表 (管理处);

CREATE TABLE 收入凭证 (
    ID INTEGER PRIMARY KEY,
    审批日期 DATE,
    审批同意 INTEGER NOT NULL DEFAULT 0,
    收款方式 TEXT COLLATE NOCASE NOT NULL DEFAULT ''
);

CREATE TABLE 收入凭证附件清单 (
    凭证ID INTEGER NOT NULL,
    票据本编号 TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    票据编号 TEXT COLLATE NOCASE NOT NULL DEFAULT '',
    金额 REAL NOT NULL DEFAULT 0
);
CREATE INDEX ix_收入凭证附件清单_凭证ID ON 收入凭证附件清单 (凭证ID);
CREATE INDEX ix_收入凭证附件清单_票据本编号 ON 收入凭证附件清单 (票据本编号);

-- No key: read whole in stored order, which an index scan could change.
CREATE TABLE 收款方式列表 (
    收款方式 TEXT COLLATE NOCASE NOT NULL
);

CREATE TABLE 岗位权限设置 (
    id INTEGER PRIMARY KEY,
    组代号 TEXT COLLATE NOCASE NOT NULL,
    岗位代号 TEXT COLLATE NOCASE NOT NULL,
    授权 INTEGER NOT NULL DEFAULT 0
);
CREATE INDEX ix_岗位权限设置_组代号 ON 岗位权限设置 (组代号);

-- One row per group and menu entry; Popedom is a 0/1 flag the rights query sorts by.
CREATE TABLE GroupPrivilege (
    GroupID TEXT COLLATE NOCASE NOT NULL,
    FormName TEXT COLLATE NOCASE NOT NULL,
    Popedom INTEGER NOT NULL DEFAULT 0,
    Memo TEXT COLLATE NOCASE NOT NULL DEFAULT ''
);
CREATE INDEX ix_GroupPrivilege_GroupID ON GroupPrivilege (GroupID);
)SQL";

} // namespace

const std::string& BillingSchemaSql() {
    static const std::string sql = kSchemaSql;
    return sql;
}

void CreateBillingSchema(sqlite3* db) {
    char* message = nullptr;
    if (sqlite3_exec(db, BillingSchemaSql().c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
        std::string text = message ? message : sqlite3_errmsg(db);
        sqlite3_free(message);
        throw std::runtime_error("billing schema: " + text);
    }
}

} // namespace quillon
