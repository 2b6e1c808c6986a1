// Each T-SQL construct of the reports' statements, run on SQLite, must mean what SQL Server
// makes of it. Expected values are worked out from SQL Server's rules.
#include "db/tsql_dialect.h"

#include <gtest/gtest.h>

#include "db/connection.h"
#include "db/db_error.h"
#include "temp_sqlite_file.h"

namespace quillon {
namespace {

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
)");
        conn.ConnectionString = file.SqliteConnectionText();
        conn.Open();
    }

    // Every row's first field as text, NULL shown as <null>, joined by "|".
    std::string Column(const std::string& sql) {
        std::string out;
        auto rs = conn.OpenRecordset(sql);
        for (; !rs.Eof(); rs.MoveNext()) {
            if (!out.empty()) out += "|";
            out += rs.Fields(0).IsNull() ? "<null>" : rs.Fields(0).Value().AsText();
        }
        return out;
    }

    TempSqliteFile file;
    Connection conn;
};

TEST_F(TsqlOnSqlite, ConvertStyle112OnDatesWithAndWithoutTimeAndOnNull) {
    struct Case {
        const char* why;
        const char* sql;
        const char* rows;
    } cases[] = {
        {"yyyymm of a date", "Select CONVERT(char(6),d,112) From D order by id", "202403|<null>|202312"},
        {"yyyymmdd of a date-time", "Select Convert(char(8),dt,112) From D order by id",
         "20240305|<null>|20240101"},
        {"blank before the comma, Char spelt in capitals",
         "Select CONVERT(Char(6),dt ,112) From D order by id", "202403|<null>|202401"},
        {"compared as text in a range",
         "Select id From D Where CONVERT(char(6),d,112) between '202312' and '202402'", "3"},
        {"text against text of two columns",
         "Select id From D Where CONVERT(char(8),d,112)<CONVERT(char(8),dt,112) order by id", "3"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Column(c.sql), c.rows);
    }
}

TEST_F(TsqlOnSqlite, StringFunctionsKeepSqlServersMeaning) {
    struct Case {
        const char* why;
        const char* sql;
        const char* rows;
    } cases[] = {
        {"len ignores trailing blanks", "Select len('ab  ')", "2"},
        {"len counts characters, not bytes", "Select len('张三 ')", "2"},
        {"len keeps leading blanks", "Select len('  a')", "3"},
        {"len of NULL", "Select len(NULL)", "<null>"},
        {"LEFT by characters", "Select LEFT('票据编号', 2)", "票据"},
        {"LEFT beyond the end", "Select Left('ab',4)", "ab"},
        {"CHARINDEX is 1-based", "Select CHARINDEX('(','ab(c',1)", "3"},
        {"CHARINDEX absent", "Select CHARINDEX('(','abc',1)", "0"},
        {"CHARINDEX ignores Latin case", "Select CHARINDEX('b','ABC',1)", "2"},
        {"CHARINDEX counts characters", "Select CHARINDEX('(','我们(x',1)", "3"},
        {"CHARINDEX from a start", "Select CHARINDEX('a','aXa',2)", "3"},
        {"+ joins text", "Select 'a' + '-' + 'b'", "a-b"},
        {"+ with NULL gives NULL", "Select 'a' + NULL", "<null>"},
        {"+ inside a literal stays", "Select 'a+b'", "a+b"},
        {"LEFT Join is not LEFT()", "Select count(*) From D LEFT Join D E On D.id=E.id", "3"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Column(c.sql), c.rows);
    }
}

TEST_F(TsqlOnSqlite, AttachmentNumberIsCutBeforeItsRemark) {
    // The ledger's match rule: cut before the first '(' unless the '(' stands first.
    EXPECT_EQ(
        Column(
            "Select LEFT(收入凭证附件清单.票据编号, case when CHARINDEX('(',收入凭证附件清单.票据编号,1)>1 "
            "then CHARINDEX('(',收入凭证附件清单.票据编号,1)-1 else len(收入凭证附件清单.票据编号) end ) "
            "From 收入凭证附件清单 order by id"),
        "123|(123|123|12|我们|(");
}

TEST_F(TsqlOnSqlite, BracketedNamesAndCaseBuildAnAddress) {
    EXPECT_EQ(
        Column(
            "Select (Case When [地址1] Is Not Null Then [地址1] Else '' End) + (Case When [字1] Is Not Null "
            "Then [字1] Else '' End) + (Case When [地址2] Is Not Null Then [地址2] Else '' End) + (Case "
            "When [字2] Is Not Null Then [字2] Else '' End) From 楼表 order by L_id"),
        "花园栋3单元|花园号");
}

TEST_F(TsqlOnSqlite, UnqualifiedOrderByNameBindsToTheSelectedColumn) {
    const char* half = "Select 票据.票据编号 ,票据.入库单编号 ,开票日期, B1.金额 From 票据 LEFT Join (Select "
                       "SUM(票据开票数据.金额) as 金额, 票据开票数据.票据编号 From 票据开票数据 Group by "
                       "票据开票数据.票据编号) B1 On 票据.票据编号 = B1.票据编号 Where 被换票票据编号 is ";
    struct Case {
        const char* why;
        std::string sql;
        const char* rows;
    } cases[] = {
        {"a join that carries the name twice",
         "Select 票据.票据编号, 开票日期 From 票据 inner join 票据开票数据 on 票据开票数据.入库单编号 "
         "=票据.入库单编号 and 票据开票数据.票据编号 = 票据.票据编号 Order by 票据.开票日期,票据编号",
         "0004|0002|0003|0003|0001"},
        {"union all with a qualified sort key",
         std::string(half) + "null Union All " + half + "not null Order by 票据.开票日期,票据编号",
         "0004|0002|0003|0001"},
        {"an alias is left to bind by itself",
         "Select 票据.入库单编号 as 票据编号, 票据.票据编号 as 号 From 票据 Order By 票据编号 desc, 号",
         "L2|L1|L1|L1"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Column(c.sql), c.rows);
    }
}

TEST(TsqlJoinScope, AnOnNameBindsToTheTablesJoinedSoFar) {
    TempSqliteFile file;
    file.Exec(R"(
CREATE TABLE 开票行 (收费项目代号 TEXT COLLATE NOCASE, 金额 REAL);
CREATE TABLE setupsfxm (DH TEXT COLLATE NOCASE, XM TEXT, 税率 REAL);
CREATE TABLE 税控盘收费项目设置 (DH TEXT COLLATE NOCASE, 税率 REAL, 管理处 TEXT);
INSERT INTO 开票行 VALUES ('WYF', 100), ('TCF', 50);
INSERT INTO setupsfxm VALUES ('wyf', '物业费', 6), ('TCF', '停车费', 9);
INSERT INTO 税控盘收费项目设置 VALUES ('WYF', 6, '01'), ('TCF', 9, '02');
)");
    Connection conn;
    conn.ConnectionString = file.SqliteConnectionText();
    conn.Open();
    // dh is in both joined tables, but when its ON is read only setupsfxm has been joined.
    auto rs = conn.OpenRecordset(
        "Select 收费项目代号, 税控盘收费项目设置.税率, XM From 开票行 inner join setupsfxm on "
        "收费项目代号=dh Inner Join 税控盘收费项目设置 ON setupsfxm.dh = 税控盘收费项目设置.DH "
        "Where 税控盘收费项目设置.管理处 ='01' order by 收费项目代号");
    ASSERT_FALSE(rs.Eof());
    EXPECT_EQ(rs.Fields("XM").Value().AsText(), "物业费");
    EXPECT_EQ(rs.Fields("税率").Value().AsNumber(), 6);
    rs.MoveNext();
    EXPECT_TRUE(rs.Eof());
    // In WHERE every table is in scope: a bare dh there stays ambiguous, as on SQL Server.
    EXPECT_THROW(
        conn.OpenRecordset("Select XM From 开票行 inner join setupsfxm on 收费项目代号=dh Inner Join "
                           "税控盘收费项目设置 ON setupsfxm.dh = 税控盘收费项目设置.DH Where dh = 'WYF'"),
        DbError);
}

TEST_F(TsqlOnSqlite, EmptyInListFailsAsOnSqlServer) {
    for (const char* sql :
         {"Select * From 票据 Where 票据编号 In ()", "Select * From 票据 Where 票据编号 IN (  )",
          "Select * From 票据 Where 票据编号 in (/* none */)"}) {
        SCOPED_TRACE(sql);
        try {
            conn.OpenRecordset(sql);
            ADD_FAILURE() << "ran";
        } catch (const DbError& e) {
            EXPECT_EQ(e.Number, kAdoErrBadStatement);
            EXPECT_EQ(e.Description, "')' 附近有语法错误。");
        }
    }
    EXPECT_EQ(Column("Select count(*) From 票据 Where 票据编号 In ('') Or 'In ()' = ''"), "0");
}

TEST(TsqlDialect, TranslatesOnlyOutsideLiteralsAndNames) {
    EXPECT_EQ(TranslateTsqlToSqlite("Select a+'x+y' From [t+1] Where CONVERT(char(6),d ,112) ='2024' -- a+b"),
              "Select a||'x+y' From [t+1] Where tsql_convert(d ,6,112) ='2024' -- a+b");
    EXPECT_EQ(TranslateTsqlToSqlite("select len(x), LEFT(x,1), CHARINDEX('(',x,1) from t LEFT Join u"),
              "select tsql_len(x), tsql_left(x,1), tsql_charindex('(',x,1) from t LEFT Join u");
}

TEST(TsqlDialect, ConvertToATypeOtherThanTextIsRefused) {
    EXPECT_THROW(TranslateTsqlToSqlite("select CONVERT(int, x) from t"), DbError);
}

} // namespace
} // namespace quillon
