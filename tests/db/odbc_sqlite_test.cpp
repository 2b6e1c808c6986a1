// The ODBC backend for real, through Debian's SQLite ODBC driver: Chinese names and values,
// NULLs, numbers, dates, long texts, nested statements, refused writes and statement errors.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "db/backend.h"
#include "db/connection.h"
#include "db_test_support.h"

namespace quillon {
namespace {

using testing::ErrorOf;
using testing::TempSqliteFile;

// The start-up text with the file in place of the catalogue; read-only comes from the URI
// because this driver ignores SQL_ATTR_ACCESS_MODE.
std::string AdoText(const std::string& path) {
    return "Provider=SQLOLEDB.1;Password=;Persist Security Info=False;User ID=;Initial Catalog='file:" +
           path + "?mode=ro';Data Source=''";
}

// A remark long enough to need many pieces, with no period that could hide a lost or repeated
// piece, and three-byte characters that fall across the piece boundaries.
std::string LongRemark() {
    std::string s;
    for (int i = 0; s.size() < 50000; ++i) s += "第" + std::to_string(i) + "笔物业费【已收】;";
    return s;
}

std::vector<std::vector<Value>> ReadAll(Cursor& cursor) {
    std::vector<std::vector<Value>> rows;
    std::vector<Value> row;
    while (cursor.Fetch(row)) rows.push_back(row);
    return rows;
}

class OdbcSqlite : public ::testing::Test {
protected:
    void SetUp() override {
        if (!std::filesystem::exists(testing::kSqliteOdbcDriver))
            GTEST_SKIP() << "the SQLite ODBC driver (package libsqliteodbc) is not installed";
        file.Exec("CREATE TABLE 收费明细 (编号 INTEGER, 项目名称 TEXT, 金额 REAL, 税率 NUMERIC(5,2),"
                  " 开票日期 DATE, 收款时间 DATETIME, 备注 TEXT, 笔数 BIGINT);"
                  "INSERT INTO 收费明细 VALUES (1, '物业管理费', 1234.56, 0.06, '2024-03-05',"
                  " '2024-03-05 10:11:12', '" +
                  LongRemark() +
                  "', 9007199254740993);"
                  "INSERT INTO 收费明细 VALUES (2, '', NULL, NULL, NULL, NULL, NULL, NULL);"
                  "INSERT INTO 收费明细 VALUES (3, 'Parking 停车费', -20, 0.09, '2024-02-29',"
                  " '2024-02-29 00:00:00', '', -1);");
        backend = MakeOdbcBackend();
        backend->Open(ConnectionString::Parse(AdoText(file.Path())), OpenOptions{5, "SQLite3"});
    }

    std::vector<std::vector<Value>> Query(const std::string& sql) {
        return ReadAll(*backend->Execute(sql, 30));
    }

    TempSqliteFile file;
    std::unique_ptr<Backend> backend;
};

// Chinese names and values, integers beyond a double's precision, money, dates with and
// without a time, NULL apart from empty text: each comes back as what it is.
TEST_F(OdbcSqlite, ValuesComeBackWithTheirKinds) {
    auto cursor =
        backend->Execute("SELECT 编号, 项目名称 AS 名称, 金额, 税率, 开票日期, 收款时间, 笔数 FROM 收费明细 "
                         "WHERE 项目名称 LIKE '%费' OR 项目名称 = '' ORDER BY 编号",
                         30);
    EXPECT_EQ(cursor->ColumnNames(),
              (std::vector<std::string>{"编号", "名称", "金额", "税率", "开票日期", "收款时间", "笔数"}));
    const Value null;
    const std::vector<std::vector<Value>> expected = {
        {std::int64_t{1}, "物业管理费", 1234.56, 0.06, DateTime{2024, 3, 5}, DateTime{2024, 3, 5, 10, 11, 12},
         std::int64_t{9007199254740993}},
        {std::int64_t{2}, "", null, null, null, null, null},
        {std::int64_t{3}, "Parking 停车费", -20.0, 0.09, DateTime{2024, 2, 29}, DateTime{2024, 2, 29},
         std::int64_t{-1}},
    };
    EXPECT_EQ(ReadAll(*cursor), expected);
}

TEST_F(OdbcSqlite, ALongTextIsReadWholeAndNullStaysApartFromEmptyText) {
    const auto rows = Query("SELECT 备注 FROM 收费明细 ORDER BY 编号");
    ASSERT_EQ(rows.size(), 3u);
    const std::string remark = rows[0][0].AsText(), expected = LongRemark();
    EXPECT_EQ(remark.size(), expected.size());
    EXPECT_TRUE(remark == expected)
        << "the remark differs from byte "
        << std::mismatch(remark.begin(), remark.end(), expected.begin(), expected.end()).first -
               remark.begin();
    EXPECT_EQ(rows[1][0], Value());
    EXPECT_EQ(rows[2][0], Value(""));
}

TEST_F(OdbcSqlite, NestedRecordsetsThroughTheConnection) {
    Connection conn;
    conn.ConnectionString = AdoText(file.Path());
    conn.OdbcDriver = "SQLite3";
    conn.ConnectionTimeout = 5;
    conn.Open();
    std::vector<std::string> seen;
    for (auto outer = conn.OpenRecordset("Select 编号, 开票日期 From 收费明细 Order by 编号"); !outer.Eof();
         outer.MoveNext()) {
        auto inner = conn.OpenRecordset("Select 项目名称 From 收费明细 Where 编号 = " +
                                        outer.Fields("编号").Value().AsText());
        ASSERT_FALSE(inner.Eof());
        seen.push_back(inner.Fields("项目名称").Value().AsText() + "|" +
                       outer.Fields("开票日期").Value().AsText());
        inner.MoveNext();
        EXPECT_TRUE(inner.Eof());
    }
    EXPECT_EQ(seen, (std::vector<std::string>{"物业管理费|2024-03-05", "|", "Parking 停车费|2024-02-29"}));
}

TEST_F(OdbcSqlite, WritesSentPastTheGuardFailAtTheEngine) {
    const char* writes[] = {
        "DELETE FROM 收费明细",  "UPDATE 收费明细 SET 金额 = 0", "INSERT INTO 收费明细 (编号) VALUES (4)",
        "CREATE TABLE 新表 (a)", "DROP TABLE 收费明细",
    };
    for (const char* sql : writes) {
        SCOPED_TRACE(sql);
        const DbError e = ErrorOf([&] { Query(sql); });
        EXPECT_EQ(e.Number, kAdoErrBadStatement);
        EXPECT_NE(e.Description.find("readonly"), std::string::npos) << e.Description;
    }
    auto rows = Query("SELECT count(*), sum(金额) FROM 收费明细");
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(rows[0][0].AsText(), "3");
    EXPECT_EQ(rows[0][1].AsText(), "1214.56");
}

TEST_F(OdbcSqlite, ABadStatementFailsWithTheDriversText) {
    struct Case {
        const char* why;
        const char* sql;
        const char* inDescription;
    } cases[] = {
        {"unknown column, named in Chinese", "SELECT 不存在的列 FROM 收费明细", "no such column: 不存在的列"},
        {"unknown table", "SELECT * FROM 发票", "no such table: 发票"},
        {"syntax", "SELEC 1", "syntax error"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        const DbError e = ErrorOf([&] { Query(c.sql); });
        EXPECT_EQ(e.Number, kAdoErrBadStatement);
        EXPECT_NE(e.Description.find(c.inDescription), std::string::npos) << e.Description;
        EXPECT_NE(e.Description.find("[SQLite]"), std::string::npos) << e.Description;
    }
    // The connection is still good after the failures.
    EXPECT_EQ(Query("SELECT count(*) FROM 收费明细")[0][0].AsText(), "3");
}

TEST(OdbcSqliteOpen, FailsWithTheDriversOrManagersText) {
    if (!std::filesystem::exists(testing::kSqliteOdbcDriver))
        GTEST_SKIP() << "the SQLite ODBC driver (package libsqliteodbc) is not installed";
    struct Case {
        const char* why;
        std::string ado;
        const char* driver;
        const char* inDescription;
    } cases[] = {
        {"missing file, read-only so not created", AdoText("/nonexistent/收费.db"), "SQLite3", "[SQLite]"},
        {"driver not registered", AdoText("/tmp/x.db"), "没有这个驱动", "[unixODBC]"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        auto backend = MakeOdbcBackend();
        const DbError e = ErrorOf([&] {
            backend->Open(ConnectionString::Parse(c.ado), OpenOptions{5, c.driver});
        });
        EXPECT_EQ(e.Number, kAdoErrGeneric);
        EXPECT_NE(e.Description.find(c.inDescription), std::string::npos) << e.Description;
    }
}

} // namespace
} // namespace quillon
