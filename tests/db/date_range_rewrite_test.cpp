// A date filter made a range must select exactly the rows the CONVERT text comparison selects,
// on every kind of date the column can hold, and must not be made where that is not certain.
#include "db/date_range_rewrite.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "db/connection.h"
#include "db/tsql_dialect.h"
#include "db_test_support.h"

namespace quillon {
namespace {

using testing::TempSqliteFile;

// Dates at the edges a range could get wrong: month and year ends, a time part and fractions,
// 29 February, far in the past, no time at all, and NULL.
constexpr const char* kEdgeDates[] = {
    "2024-01-01 00:00:00", "2024-01-31 23:59:59",     "2024-02-29",          "2024-02-29 12:00",
    "2024-03-01",          "2024-09-30 23:59:59.997", "2024-10-01 00:00:00", "2024-12-31 23:59:59.997",
    "2025-01-01",          "2023-12-31 23:59:59",     "1900-01-01",          "1753-01-01 00:00:00",
    "2099-12-31T08:00:00",
};

class DateRangeRewrite : public ::testing::Test {
protected:
    void SetUp() override {
        file.Exec(
            "CREATE TABLE 票据 (ID INTEGER PRIMARY KEY, 开票日期 DATETIME, 收款日期 DATETIME COLLATE NOCASE,"
            " 备注 TEXT); CREATE INDEX ix ON 票据 (开票日期); CREATE TABLE 其他 (开票日期 TEXT);");
        int id = 0;
        for (const char* d : kEdgeDates)
            file.Exec("INSERT INTO 票据 VALUES (" + std::to_string(++id) + ", '" + d + "', '" + d +
                      "', NULL)");
        file.Exec("INSERT INTO 票据 VALUES (100, NULL, NULL, NULL)");
        sqlite3_open_v2(file.Path().c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
        RegisterTsqlFunctions(db);
    }
    void TearDown() override { sqlite3_close(db); }

    DialectContext Context(bool rewrite) {
        DialectContext c;
        c.columns = [this](const std::string& table) {
            std::vector<std::string> names;
            sqlite3_stmt* s = nullptr;
            sqlite3_prepare_v2(db, "SELECT name FROM pragma_table_info(?)", -1, &s, nullptr);
            sqlite3_bind_text(s, 1, table.c_str(), -1, SQLITE_TRANSIENT);
            while (sqlite3_step(s) == SQLITE_ROW)
                names.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(s, 0)));
            sqlite3_finalize(s);
            return names;
        };
        if (rewrite)
            c.isoDates = [this](const std::string& t, const std::string& col) {
                return ColumnHoldsIsoDates(db, t, col);
            };
        return c;
    }

    // The ids the statement selects, in order.
    std::string Ids(const std::string& sql) {
        std::string out;
        sqlite3_stmt* s = nullptr;
        if (sqlite3_prepare_v2(db, sql.c_str(), -1, &s, nullptr) != SQLITE_OK) return "error: " + sql;
        while (sqlite3_step(s) == SQLITE_ROW) out += std::to_string(sqlite3_column_int(s, 0)) + " ";
        sqlite3_finalize(s);
        return out;
    }

    TempSqliteFile file;
    sqlite3* db = nullptr;
};

TEST_F(DateRangeRewrite, EveryComparisonSelectsTheSameRowsAsTheTextComparison) {
    const std::string filters[] = {
        "CONVERT(char(6),开票日期,112) = '202402'",
        "CONVERT(char(6),开票日期,112) ='202409'",
        "CONVERT(char(6),开票日期,112) = '202412'",
        "Convert(Char(8),开票日期,112) = '20240229'",
        "CONVERT(char(8),开票日期,112) < '20240301'",
        "CONVERT(char(8),开票日期,112) <= '20240229'",
        "CONVERT(char(8),开票日期,112) > '20240930'",
        "CONVERT(char(6),开票日期,112) >= '202410'",
        "CONVERT(char(4),开票日期,112) = '2024'",
        "CONVERT(char(4),开票日期,112) > '1999'",
        "convert(char(8),票据.收款日期,112) Between '20240101' And '20241231'",
        "CONVERT(char(6),收款日期,112) between '202401' and '202412'",
        "CONVERT(char(6),收款日期,112) between '202412' and '202401'",
        "CONVERT(char(8),开票日期,112) Between '20240131' And '20240131' Or 备注 Is Null",
        "Not CONVERT(char(6),开票日期,112) = '202401'",
        "CONVERT(char(8),开票日期,112) > '00000000' And (CONVERT(char(6),收款日期,112) < '202500')",
    };
    for (const auto& filter : filters) {
        SCOPED_TRACE(filter);
        const std::string sql = "Select ID From 票据 Where " + filter + " Order by ID";
        const std::string ranged = TranslateTsqlToSqlite(sql, Context(true));
        EXPECT_EQ(ranged.find("tsql_convert"), std::string::npos) << ranged;
        EXPECT_EQ(Ids(ranged), Ids(TranslateTsqlToSqlite(sql, Context(false))));
    }
}

TEST_F(DateRangeRewrite, BoundsFollowTheDigitsAndCarry) {
    EXPECT_EQ(TranslateTsqlToSqlite("Select ID From 票据 Where CONVERT(char(6),开票日期,112) ='202409'",
                                    Context(true)),
              "Select ID From 票据 Where (开票日期 >= '2024-09-' And 开票日期 < '2024-10-')");
    EXPECT_EQ(
        TranslateTsqlToSqlite(
            "Select ID From 票据 T Where Convert(Char(8),T.开票日期,112) Between '20240101' And '20241231'",
            Context(true)),
        "Select ID From 票据 T Where (T.开票日期 >= '2024-01-01' And T.开票日期 < '2024-12-32')");
}

TEST_F(DateRangeRewrite, LeavesWhatItCannotShowEqual) {
    const std::string cases[] = {
        "Select ID From 票据 Where CONVERT(char(6),开票日期,112) = '999999'", // no bound after the last
        "Select ID From 票据 Where CONVERT(char(6),开票日期,112) = '2024'",   // never equal: 4 digits
        "Select ID From 票据 Where CONVERT(char(6),开票日期,112) = '2024-1'",
        "Select ID From 票据 Where CONVERT(char(7),开票日期,112) = '2024010'",
        "Select ID From 票据 Where CONVERT(char(6),开票日期,111) = '202401'",
        "Select ID From 票据 Where CONVERT(char(6),开票日期,112) <> '202401'",
        "Select ID From 票据 Where CONVERT(char(6),开票日期,112) = '202401' + ''",
        "Select ID From 票据 Where '' + CONVERT(char(6),开票日期,112) = '202401'",
        "Select ID From 票据 Where CONVERT(char(6),开票日期,112) = 备注",
        "Select ID From 票据 Where CONVERT(char(6),开票日期,112) Not Between '202401' And '202402'",
        // a derived table's column may carry the base column's name and mean something else
        "Select ID From (Select ID, 备注 As 开票日期 From 票据) T Where CONVERT(char(6),开票日期,112) = "
        "'202401'",
        "Select ID From (Select ID, 备注 As 开票日期 From 票据) T Where CONVERT(char(6),T.开票日期,112) = "
        "'202401'",
        "Select ID From (Select * From 票据) T Where CONVERT(char(6),开票日期,112) = '202401'",
        // 其他.开票日期 holds text that is no date
        "Select ID From 票据, 其他 Where CONVERT(char(6),开票日期,112) = '202401'",
        "Select ID From 票据 Where CONVERT(char(6),没有,112) = '202401'",
    };
    file.Exec("INSERT INTO 其他 VALUES ('202401xx')");
    for (const auto& sql : cases) {
        SCOPED_TRACE(sql);
        EXPECT_EQ(TranslateTsqlToSqlite(sql, Context(true)), TranslateTsqlToSqlite(sql, Context(false)));
    }
}

TEST_F(DateRangeRewrite, OneValueThatIsNoIsoDateKeepsTheColumnOutOfIt) {
    const std::string sql = "Select ID From 票据 Where CONVERT(char(6),收款日期,112) = '202401' Order by ID";
    for (const char* odd : {"202401", "2024-1-05", "2024-02-30", "2024-01-01x", "20240115"}) {
        SCOPED_TRACE(odd);
        file.Exec(std::string("UPDATE 票据 SET 收款日期 = '") + odd + "' WHERE ID = 100");
        EXPECT_EQ(TranslateTsqlToSqlite(sql, Context(true)), TranslateTsqlToSqlite(sql, Context(false)));
    }
    file.Exec("UPDATE 票据 SET 收款日期 = 20240115 WHERE ID = 100"); // a number, not text
    EXPECT_FALSE(ColumnHoldsIsoDates(db, "票据", "收款日期"));
    file.Exec("UPDATE 票据 SET 收款日期 = NULL WHERE ID = 100");
    EXPECT_TRUE(ColumnHoldsIsoDates(db, "票据", "收款日期"));
    EXPECT_FALSE(ColumnHoldsIsoDates(db, "无此表", "收款日期"));
}

// A connection learns once that a column holds dates, and learns again when the file changes.
TEST_F(DateRangeRewrite, AConnectionNoticesAValueWrittenSinceItLooked) {
    Connection conn;
    conn.ConnectionString = file.SqliteConnectionText();
    conn.Open();
    auto ids = [&] {
        std::string out;
        for (auto rs =
                 conn.OpenRecordset("Select ID From 票据 Where CONVERT(char(6),收款日期,112) = '202401' "
                                    "Order by ID");
             !rs.Eof(); rs.MoveNext())
            out += rs.Fields(0).Value().AsText() + " ";
        return out;
    };
    EXPECT_EQ(ids(), "1 2 ");
    file.Exec("UPDATE 票据 SET 收款日期 = '202401 (补)' WHERE ID = 100");
    EXPECT_EQ(ids(), "1 2 100 ");
    EXPECT_EQ(conn.Engine().statements, 2);
    EXPECT_GT(conn.Engine().spent.count(), 0);
}

} // namespace
} // namespace quillon
