// The ODBC backend for real, through Debian's SQLite ODBC driver: Chinese names and values,
// NULLs, numbers, dates, long texts, nested statements, refused writes and statement errors.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "db/backend.h"
#include "db/connection.h"
#include "db/db_error.h"
#include "temp_sqlite_file.h"

namespace quillon {
namespace {

using testing::TempSqliteFile;

constexpr const char* kDriverLibrary = "/usr/lib/x86_64-linux-gnu/odbc/libsqlite3odbc.so";

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

DbError ErrorOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const DbError& e) {
        return e;
    }
    return DbError(0, "no error");
}

class OdbcSqlite : public ::testing::Test {
protected:
    void SetUp() override {
        if (!std::filesystem::exists(kDriverLibrary))
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

TEST_F(OdbcSqlite, ChineseNamesAndValuesRoundTrip) {
    auto cursor = backend->Execute(
        "SELECT 编号, 项目名称 AS 名称 FROM 收费明细 WHERE 项目名称 LIKE '%费' ORDER BY 编号", 30);
    EXPECT_EQ(cursor->ColumnNames(), (std::vector<std::string>{"编号", "名称"}));
    auto rows = ReadAll(*cursor);
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0][1], Value("物业管理费"));
    EXPECT_EQ(rows[1][1], Value("Parking 停车费"));
}

TEST_F(OdbcSqlite, NullStaysApartFromEmptyText) {
    auto rows =
        Query("SELECT 项目名称, 金额, 备注, 开票日期 FROM 收费明细 WHERE 编号 IN (2, 3) ORDER BY 编号");
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0][0], Value(""));
    EXPECT_TRUE(rows[0][1].IsNull());
    EXPECT_TRUE(rows[0][2].IsNull());
    EXPECT_TRUE(rows[0][3].IsNull());
    EXPECT_EQ(rows[1][2], Value(""));
}

TEST_F(OdbcSqlite, NumbersComeBackAsNumbers) {
    auto rows = Query("SELECT 编号, 金额, 税率, 笔数 FROM 收费明细 WHERE 编号 IN (1, 3) ORDER BY 编号");
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0][0], Value(std::int64_t{1}));
    EXPECT_EQ(rows[0][1], Value(1234.56));
    EXPECT_EQ(rows[0][2], Value(0.06));
    EXPECT_EQ(rows[0][3], Value(std::int64_t{9007199254740993}));
    EXPECT_EQ(rows[1][1], Value(-20.0));
    EXPECT_EQ(rows[1][3], Value(std::int64_t{-1}));
}

TEST_F(OdbcSqlite, DateColumnsComeBackAsDates) {
    auto rows = Query("SELECT 开票日期, 收款时间 FROM 收费明细 WHERE 编号 IN (1, 3) ORDER BY 编号");
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0][0], Value(DateTime{2024, 3, 5}));
    EXPECT_EQ(rows[0][1], Value(DateTime{2024, 3, 5, 10, 11, 12}));
    EXPECT_EQ(rows[1][0], Value(DateTime{2024, 2, 29}));
    EXPECT_EQ(rows[1][1], Value(DateTime{2024, 2, 29}));
}

TEST_F(OdbcSqlite, ALongTextIsReadWhole) {
    auto rows = Query("SELECT 备注 FROM 收费明细 WHERE 编号 = 1");
    ASSERT_EQ(rows.size(), 1u);
    ASSERT_TRUE(rows[0][0].IsText());
    std::string remark = rows[0][0].AsText();
    EXPECT_EQ(remark.size(), LongRemark().size());
    EXPECT_TRUE(remark == LongRemark()) << "the remark differs from byte " << [&] {
        size_t i = 0;
        while (i < remark.size() && i < LongRemark().size() && remark[i] == LongRemark()[i]) ++i;
        return i;
    }();
}

TEST_F(OdbcSqlite, ASecondStatementMidWalkLeavesBothWhole) {
    auto outer = backend->Execute("SELECT 编号, 项目名称 FROM 收费明细 ORDER BY 编号", 30);
    std::vector<Value> row;
    std::vector<std::string> seen;
    while (outer->Fetch(row)) {
        auto inner =
            Query("SELECT count(*) AS 笔数, sum(金额) FROM 收费明细 WHERE 编号 <= " + row[0].AsText());
        ASSERT_EQ(inner.size(), 1u);
        seen.push_back(row[1].AsText() + "|" + inner[0][0].AsText() + "|" + inner[0][1].AsText());
    }
    const std::vector<std::string> expected = {"物业管理费|1|1234.56", "|2|1234.56",
                                               "Parking 停车费|3|1214.56"};
    EXPECT_EQ(seen, expected);
}

TEST_F(OdbcSqlite, NestedRecordsetsThroughTheConnection) {
    Connection conn;
    conn.ConnectionString = AdoText(file.Path());
    conn.OdbcDriver = "SQLite3";
    conn.ConnectionTimeout = 5;
    conn.Open();
    auto outer = conn.OpenRecordset("Select 编号, 开票日期 From 收费明细 Order by 编号");
    std::vector<std::string> seen;
    while (!outer.Eof()) {
        auto inner = conn.OpenRecordset("Select 项目名称 From 收费明细 Where 编号 = " +
                                        outer.Fields("编号").Value().AsText());
        ASSERT_FALSE(inner.Eof());
        seen.push_back(inner.Fields("项目名称").Value().AsText() + "|" +
                       outer.Fields("开票日期").Value().AsText());
        inner.MoveNext();
        EXPECT_TRUE(inner.Eof());
        outer.MoveNext();
    }
    const std::vector<std::string> expected = {"物业管理费|2024-03-05", "|", "Parking 停车费|2024-02-29"};
    EXPECT_EQ(seen, expected);
}

TEST_F(OdbcSqlite, WritesSentPastTheGuardFailAtTheEngine) {
    const char* writes[] = {
        "DELETE FROM 收费明细",  "UPDATE 收费明细 SET 金额 = 0", "INSERT INTO 收费明细 (编号) VALUES (4)",
        "CREATE TABLE 新表 (a)", "DROP TABLE 收费明细",
    };
    for (const char* sql : writes) {
        SCOPED_TRACE(sql);
        DbError e = ErrorOf([&] { Query(sql); });
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
        DbError e = ErrorOf([&] { Query(c.sql); });
        EXPECT_EQ(e.Number, kAdoErrBadStatement);
        EXPECT_NE(e.Description.find(c.inDescription), std::string::npos) << e.Description;
        EXPECT_NE(e.Description.find("[SQLite]"), std::string::npos) << e.Description;
    }
    // The connection is still good after the failures.
    EXPECT_EQ(Query("SELECT count(*) FROM 收费明细")[0][0].AsText(), "3");
}

TEST(OdbcSqliteOpen, FailsWithTheDriversOrManagersText) {
    if (!std::filesystem::exists(kDriverLibrary))
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
        DbError e = ErrorOf([&] { backend->Open(ConnectionString::Parse(c.ado), OpenOptions{5, c.driver}); });
        EXPECT_EQ(e.Number, kAdoErrGeneric);
        EXPECT_NE(e.Description.find(c.inDescription), std::string::npos) << e.Description;
    }
}

} // namespace
} // namespace quillon
