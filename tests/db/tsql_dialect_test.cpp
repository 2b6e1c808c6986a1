// Each T-SQL construct of the reports' statements, run on SQLite, must mean what SQL Server
// makes of it. Expected values are worked out from SQL Server's rules.
#include "db/tsql_dialect.h"

#include <gtest/gtest.h>

#include "db/connection.h"
#include "db_test_support.h"

namespace quillon {
namespace {

using testing::ErrorOf;
using testing::TempSqliteFile;

class TsqlOnSqlite : public ::testing::Test {
protected:
    void SetUp() override {
        file.Exec(R"(
CREATE TABLE D (id INTEGER, d DATE, dt DATETIME);
INSERT INTO D VALUES (1, '2024-03-05', '2024-03-05 23:59:59'), (2, NULL, NULL), (3, '2023-12-31', '2024-01-01 00:00:00');
CREATE TABLE 收入凭证附件清单 (id INTEGER, 票据编号 TEXT COLLATE NOCASE);
INSERT INTO 收入凭证附件清单 VALUES (1, '123(退)'), (2, '(123'), (3, '123'), (4, '12(3)(4)'), (5, '我们(x'), (6, '(');
CREATE TABLE 楼表 (L_id INTEGER, 地址1 TEXT, 字1 TEXT, 地址2 TEXT, 字2 TEXT);
INSERT INTO 楼表 VALUES (1, '花园', '栋', '3', '单元'), (2, '花园', NULL, NULL, '号');
CREATE TABLE 票据 (ID INTEGER, 入库单编号 TEXT COLLATE NOCASE, 票据编号 TEXT COLLATE NOCASE, 开票日期 DATE,
                   被换票票据编号 TEXT);
INSERT INTO 票据 VALUES (1, 'L1', '0003', '2024-03-01', NULL), (2, 'L1', '0001', '2024-03-02', NULL),
                        (3, 'L1', '0002', '2024-03-01', '0009'), (4, 'L2', '0004', '2024-02-28', NULL);
CREATE TABLE 票据开票数据 (票据id INTEGER, 入库单编号 TEXT COLLATE NOCASE, 票据编号 TEXT COLLATE NOCASE, 金额 REAL);
INSERT INTO 票据开票数据 VALUES (1, 'L1', '0003', 10), (1, 'L1', '0003', 5), (2, 'L1', '0001', 7),
                               (3, 'L1', '0002', 1), (4, 'L2', '0004', 2);
CREATE TABLE 开票行 (收费项目代号 TEXT COLLATE NOCASE, 金额 REAL);
CREATE TABLE setupsfxm (DH TEXT COLLATE NOCASE, XM TEXT, 税率 REAL);
CREATE TABLE 税控盘收费项目设置 (DH TEXT COLLATE NOCASE, 税率 REAL, 管理处 TEXT);
INSERT INTO 开票行 VALUES ('WYF', 100), ('TCF', 50);
INSERT INTO setupsfxm VALUES ('wyf', '物业费', 0.06), ('TCF', '停车费', 0.09);
INSERT INTO 税控盘收费项目设置 VALUES ('WYF', 6, '01'), ('TCF', 9, '02');
)");
        conn.ConnectionString = file.SqliteConnectionText();
        conn.Open();
    }

    // The rows as text: fields joined by ",", rows by "|", NULL shown as <null>.
    std::string Rows(const std::string& sql) {
        std::string out;
        for (auto rs = conn.OpenRecordset(sql); !rs.Eof(); rs.MoveNext()) {
            if (!out.empty()) out += "|";
            for (int f = 0; f < rs.FieldCount(); ++f)
                out += (f ? "," : "") + (rs.Fields(f).IsNull() ? "<null>" : rs.Fields(f).Value().AsText());
        }
        return out;
    }

    TempSqliteFile file;
    Connection conn;
};

TEST_F(TsqlOnSqlite, EachConstructMeansWhatSqlServerMakesOfIt) {
    const std::string half =
        "Select 票据.票据编号 ,票据.入库单编号 ,开票日期, B1.金额 From 票据 LEFT Join (Select "
        "SUM(票据开票数据.金额) as 金额, 票据开票数据.票据编号 From 票据开票数据 Group by "
        "票据开票数据.票据编号) B1 On 票据.票据编号 = B1.票据编号 Where 被换票票据编号 is ";
    struct Case {
        const char* why;
        std::string sql;
        const char* rows;
    } cases[] = {
        {"yyyymm of a date", "Select CONVERT(char(6),d,112) From D order by id", "202403|<null>|202312"},
        {"yyyymmdd of a date-time", "Select Convert(char(8),dt,112) From D order by id",
         "20240305|<null>|20240101"},
        {"yyyy of a date, char(4)", "Select CONVERT(char(4),d,112) From D order by id", "2024|<null>|2023"},
        {"a char longer than the digits keeps all eight",
         "Select CONVERT(char(10),dt,112) From D order by id", "20240305|<null>|20240101"},
        {"char(0) is empty, not the whole date",
         "Select '[' + CONVERT(char(0),d,112) + ']' From D Where id=1", "[]"},
        {"text that is no date stays as it is, cut to the length",
         "Select CONVERT(char(6),'2024-13-01',112), CONVERT(char(3),'张三李四',112)", "2024-1,张三李"},
        {"blank before the comma, Char spelt in capitals",
         "Select CONVERT(Char(6),dt ,112) From D order by id", "202403|<null>|202401"},
        {"converted dates compared as text in a range",
         "Select id From D Where CONVERT(char(6),d,112) between '202312' and '202402'", "3"},
        {"text against text of two columns",
         "Select id From D Where CONVERT(char(8),d,112)<CONVERT(char(8),dt,112) order by id", "3"},
        {"len ignores trailing blanks", "Select len('ab  ')", "2"},
        {"len counts characters, not bytes", "Select len('张三 ')", "2"},
        {"len keeps leading blanks", "Select len('  a')", "3"},
        {"len of NULL", "Select len(NULL)", "<null>"},
        {"LEFT by characters", "Select LEFT('票据编号', 2)", "票据"},
        {"CHARINDEX is 1-based", "Select CHARINDEX('(','ab(c',1)", "3"},
        {"CHARINDEX absent", "Select CHARINDEX('(','abc',1)", "0"},
        {"CHARINDEX ignores Latin case", "Select CHARINDEX('b','ABC',1)", "2"},
        {"CHARINDEX counts characters", "Select CHARINDEX('(','我们(x',1)", "3"},
        {"CHARINDEX from a start", "Select CHARINDEX('a','aXa',2)", "3"},
        {"+ joins text", "Select 'a' + '-' + 'b'", "a-b"},
        {"+ with NULL gives NULL", "Select 'a' + NULL", "<null>"},
        {"LEFT Join is not LEFT()", "Select count(*) From D LEFT Join D E On D.id=E.id", "3"},
        {"In () inside a literal is no empty list",
         "Select count(*) From 票据 Where 票据编号 In ('') Or 'In ()' = ''", "0"},
        {"the ledger's rule cuts a number before its first '(' unless the '(' stands first",
         "Select LEFT(收入凭证附件清单.票据编号, case when CHARINDEX('(',收入凭证附件清单.票据编号,1)>1 "
         "then CHARINDEX('(',收入凭证附件清单.票据编号,1)-1 else len(收入凭证附件清单.票据编号) end ) "
         "From 收入凭证附件清单 order by id",
         "123|(123|123|12|我们|("},
        {"bracketed names and Case build an address",
         "Select (Case When [地址1] Is Not Null Then [地址1] Else '' End) + (Case When [字1] Is Not Null "
         "Then [字1] Else '' End) + (Case When [地址2] Is Not Null Then [地址2] Else '' End) + (Case "
         "When [字2] Is Not Null Then [字2] Else '' End) From 楼表 order by L_id",
         "花园栋3单元|花园号"},
        {"an unqualified Order by name binds to the selected column, though the join carries it twice",
         "Select 票据.票据编号, 开票日期 From 票据 inner join 票据开票数据 on 票据开票数据.入库单编号 "
         "=票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号 Order by 票据.开票日期,票据编号",
         "0004,2024-02-28|0002,2024-03-01|0003,2024-03-01|0003,2024-03-01|0001,2024-03-02"},
        {"union all with a qualified sort key",
         half + "null Union All " + half + "not null Order by 票据.开票日期,票据编号",
         "0004,L2,2024-02-28,2|0002,L1,2024-03-01,1|0003,L1,2024-03-01,15|0001,L1,2024-03-02,7"},
        {"an alias is left to bind by itself",
         "Select 票据.入库单编号 as 票据编号, 票据.票据编号 as 号 From 票据 Order By 票据编号 desc, 号",
         "L2,0004|L1,0001|L1,0002|L1,0003"},
        {"dh is in both joined tables, but when its ON is read only setupsfxm has been joined",
         "Select 收费项目代号, 税控盘收费项目设置.税率, XM From 开票行 inner join setupsfxm on "
         "收费项目代号=dh Inner Join 税控盘收费项目设置 ON setupsfxm.dh = 税控盘收费项目设置.DH "
         "Where 税控盘收费项目设置.管理处 ='01' order by 收费项目代号",
         "WYF,6,物业费"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Rows(c.sql), c.rows);
    }
}

TEST_F(TsqlOnSqlite, WhatSqlServerRefusesFailsHereToo) {
    for (const char* sql :
         {"Select * From 票据 Where 票据编号 In ()", "Select * From 票据 Where 票据编号 IN (  )",
          "Select * From 票据 Where 票据编号 in (/* none */)"}) {
        SCOPED_TRACE(sql);
        const DbError e = ErrorOf([&] { conn.OpenRecordset(sql); });
        EXPECT_EQ(e.Number, kAdoErrBadStatement);
        EXPECT_EQ(e.Description, "')' 附近有语法错误。");
    }
    // In WHERE every table is in scope: a bare dh there stays ambiguous, as on SQL Server.
    EXPECT_THROW(
        conn.OpenRecordset("Select XM From 开票行 inner join setupsfxm on 收费项目代号=dh Inner Join "
                           "税控盘收费项目设置 ON setupsfxm.dh = 税控盘收费项目设置.DH Where dh = 'WYF'"),
        DbError);
    EXPECT_THROW(TranslateTsqlToSqlite("select CONVERT(int, x) from t"), DbError);
}

TEST(TsqlDialect, TranslatesOnlyOutsideLiteralsAndNames) {
    EXPECT_EQ(TranslateTsqlToSqlite("Select a+'x+y' From [t+1] Where CONVERT(char(6),d ,112) ='2024' -- a+b"),
              "Select a||'x+y' From [t+1] Where tsql_convert(d ,6,112) ='2024' -- a+b");
    EXPECT_EQ(TranslateTsqlToSqlite("select len(x), LEFT(x,1), CHARINDEX('(',x,1) from t LEFT Join u"),
              "select tsql_len(x), tsql_left(x,1), tsql_charindex('(',x,1) from t LEFT Join u");
}

} // namespace
} // namespace quillon
