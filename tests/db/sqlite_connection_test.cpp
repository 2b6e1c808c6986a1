// The Connection over the embedded engine: opening, reading, refusing writes, time limits.
#include <gtest/gtest.h>

#include <cstdio>

#include "db/connection.h"
#include "db_test_support.h"

namespace quillon {
namespace {

using testing::ErrorOf;
using testing::TempSqliteFile;

class SqliteConnection : public ::testing::Test {
protected:
    void SetUp() override {
        file.Exec("CREATE TABLE 票据 (ID INTEGER PRIMARY KEY, 票据编号 TEXT COLLATE NOCASE, 开票日期 DATE,"
                  " 收款日期 DATETIME, 金额 REAL, 付款人 TEXT COLLATE NOCASE);"
                  "INSERT INTO 票据 VALUES (1, '0001', '2024-03-05', '2024-04-01 10:30:00', 106.5, '张三');"
                  "INSERT INTO 票据 VALUES (2, '0002', '2024-03-06', NULL, -20, '');"
                  "INSERT INTO 票据 VALUES (3, '0003', '2024-03-07', NULL, 0, NULL);");
        conn.ConnectionString = file.SqliteConnectionText();
        conn.Open();
    }
    TempSqliteFile file;
    Connection conn;
};

TEST_F(SqliteConnection, FieldsByNameIgnoreCaseAndKeepNullApartFromEmpty) {
    auto rs = conn.OpenRecordset("Select id, 票据编号 as JE, 付款人 From 票据 Order by ID");
    ASSERT_FALSE(rs.Eof());
    EXPECT_EQ(rs.Fields("Je").Value().AsText(), "0001");
    EXPECT_EQ(rs.Fields("ID").Value().AsNumber(), 1);
    EXPECT_EQ(rs.Fields("付款人").Value().AsText(), "张三");
    rs.MoveNext();
    EXPECT_FALSE(rs.Fields("付款人").IsNull());
    EXPECT_EQ(rs.Fields(2).Value().AsText(), "");
    rs.MoveNext();
    EXPECT_TRUE(rs.Fields("付款人").IsNull());
    rs.MoveNext();
    EXPECT_TRUE(rs.Eof());
    // Unknown names and ordinals, and reading past the end.
    EXPECT_EQ(ErrorOf([&] { rs.Fields("付款人"); }).Number, kAdoErrNoCurrentRecord);
    rs = conn.OpenRecordset("Select ID From 票据 Where ID = 1");
    EXPECT_EQ(ErrorOf([&] { rs.Fields("金额"); }).Number, kAdoErrItemNotFound);
    EXPECT_EQ(ErrorOf([&] { rs.Fields(1); }).Number, kAdoErrItemNotFound);
    EXPECT_EQ(ErrorOf([&] { rs.Fields(-1); }).Number, kAdoErrItemNotFound);
    EXPECT_EQ(ErrorOf([&] { rs.MoveNext(), rs.MoveNext(); }).Number, kAdoErrNoCurrentRecord);
}

TEST_F(SqliteConnection, DateColumnsComeBackAsDatesAndExpressionsAsTheyAre) {
    auto rs =
        conn.OpenRecordset("Select 开票日期, 收款日期, 金额, '2024-01-01' as 文本 From 票据 Where ID = 1");
    EXPECT_EQ(rs.Fields("开票日期").Value(), Value(DateTime{2024, 3, 5}));
    EXPECT_EQ(rs.Fields("收款日期").Value(), Value(DateTime{2024, 4, 1, 10, 30, 0}));
    EXPECT_EQ(rs.Fields("金额").Value(), Value(106.5));
    EXPECT_EQ(rs.Fields("文本").Value(), Value("2024-01-01"));
}

TEST_F(SqliteConnection, TwoRecordsetsReadSideBySide) {
    auto outer = conn.OpenRecordset("Select ID From 票据 Order by ID");
    int pairs = 0;
    for (; !outer.Eof(); outer.MoveNext()) {
        auto inner = conn.OpenRecordset("Select count(*) as n From 票据 Where ID <= " +
                                        outer.Fields("ID").Value().AsText());
        pairs += static_cast<int>(inner.Fields("n").Value().AsNumber());
    }
    EXPECT_EQ(pairs, 1 + 2 + 3);
}

TEST_F(SqliteConnection, WritesFailAtTheGuardAndAtTheEngineAndOnlyWhatIsSentIsLogged) {
    std::vector<std::string> log;
    conn.OnStatement = [&](const std::string& sql) { log.push_back(sql); };
    EXPECT_EQ(ErrorOf([&] { conn.OpenRecordset("Delete From 票据"); }).Number, kAdoErrBadStatement);
    // Below the guard the file itself is open read-only.
    auto backend = MakeSqliteBackend();
    backend->Open(ConnectionString::Parse(file.SqliteConnectionText()), OpenOptions{});
    std::vector<Value> row;
    const DbError e = ErrorOf([&] { backend->Execute("DELETE FROM 票据", 0)->Fetch(row); });
    EXPECT_EQ(e.Description, "数据库只能读取，不能写入。");
    auto rs = conn.OpenRecordset("Select count(*) as n From 票据");
    EXPECT_EQ(rs.Fields("n").Value().AsNumber(), 3);
    EXPECT_EQ(log, std::vector<std::string>{"Select count(*) as n From 票据"});
}

TEST(SqliteOpen, FailsWithTheReasonInTheDescription) {
    TempSqliteFile notADatabase;
    FILE* f = std::fopen(notADatabase.Path().c_str(), "wb");
    std::fputs("this is not a database file, just text that is long enough to be read", f);
    std::fclose(f);
    struct Case {
        const char* why;
        std::string text;
        long number;
        std::string description;
    } cases[] = {
        {"missing file", "Provider=SQLite;Data Source='/nonexistent/demo.db'", kAdoErrGeneric,
         "[SQLite] 无法打开数据库 '/nonexistent/demo.db': 无法打开数据库文件。"},
        {"empty data source", "Provider=SQLite;Data Source=''", kAdoErrGeneric,
         "[SQLite] 无法打开数据库 '': 无法打开数据库文件。"},
        {"not a database", notADatabase.SqliteConnectionText(), kAdoErrGeneric,
         "[SQLite] 无法打开数据库 '" + notADatabase.Path() + "': 文件不是数据库。"},
        {"unknown provider", "Provider=Jet.4;Data Source=x", kAdoErrProviderNotFound,
         "未找到提供程序。该程序可能未正确安装。"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        Connection conn;
        conn.ConnectionString = c.text;
        const DbError e = ErrorOf([&] { conn.Open(); });
        EXPECT_EQ(e.Number, c.number);
        EXPECT_EQ(e.Description, c.description);
        EXPECT_FALSE(conn.IsOpen());
    }
}

// A statement the engine refuses fails in SQL Server's words, as it would in production.
TEST(SqliteStatement, FailsInSqlServersWords) {
    TempSqliteFile file;
    file.Exec("CREATE TABLE 票据 (票据编号 TEXT, 金额 REAL); CREATE TABLE 退票 (票据编号 TEXT);");
    Connection conn;
    conn.ConnectionString = file.SqliteConnectionText();
    conn.Open();
    struct Case {
        const char* why;
        const char* sql;
        const char* description;
    } cases[] = {
        {"a table missing", "Select * From 发票", "对象名 '发票' 无效。"},
        {"a column missing", "Select 税额 From 票据", "列名 '税额' 无效。"},
        {"a column of two tables", "Select 票据编号 From 票据, 退票", "列名 '票据编号' 不明确。"},
        {"a word out of place", "Select 金额 金额 金额 From 票据", "'金额' 附近有语法错误。"},
        {"a literal left open", "Select * From 票据 Where 票据编号 = '01", "字符串 '01' 后的引号不完整。"},
        {"the statement cut short", "Select * From 票据 Where", "语句意外结束。"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        const DbError e = ErrorOf([&] { conn.OpenRecordset(c.sql); });
        EXPECT_EQ(e.Number, kAdoErrBadStatement);
        EXPECT_EQ(e.Description, c.description);
    }
}

TEST(SqliteTimeout, ALongStatementStopsAtCommandTimeoutAndZeroMeansNoLimit) {
    TempSqliteFile file;
    file.Exec("CREATE TABLE t (i INTEGER);"
              "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 2000) "
              "INSERT INTO t SELECT i FROM n;");
    auto backend = MakeSqliteBackend();
    backend->Open(ConnectionString::Parse(file.SqliteConnectionText()), OpenOptions{});
    std::vector<Value> row;
    auto started = std::chrono::steady_clock::now();
    EXPECT_EQ(ErrorOf([&] { backend->Execute("SELECT count(*) FROM t a, t b, t c", 1)->Fetch(row); }).Number,
              kAdoErrTimeout); // 8e9 rows
    auto waited = std::chrono::steady_clock::now() - started;
    EXPECT_GE(waited, std::chrono::milliseconds(900));
    EXPECT_LT(waited, std::chrono::seconds(5));
    ASSERT_TRUE(backend->Execute("SELECT count(*) FROM t a, t b WHERE a.i < 100", 0)->Fetch(row));
    EXPECT_EQ(row[0].AsNumber(), 99 * 2000);
}

} // namespace
} // namespace quillon
