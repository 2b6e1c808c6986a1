// Derived tables of one family read their rows once: the rows, sums and order must be those of
// the statement as written, and a statement the step cannot show equal must be left alone.
#include "db/shared_derived_tables.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "db/tsql_dialect.h"
#include "db_test_support.h"

namespace quillon {
namespace {

using testing::TempSqliteFile;

class SharedDerivedTables : public ::testing::Test {
protected:
    void SetUp() override {
        // Codes in two cases and NULL, a bill with no lines, lines of one item twice on a bill,
        // a line whose bill is of another department, money with binary noise.
        file.Exec(
            "CREATE TABLE 票据 (票据编号 TEXT COLLATE NOCASE, 部门 TEXT, 日期 TEXT);"
            "CREATE TABLE 行 (票据编号 TEXT COLLATE NOCASE, 代号 TEXT COLLATE NOCASE, 金额 REAL, 税额 REAL);"
            "INSERT INTO 票据 VALUES ('B1','d','2024-01-05'), ('b2','d','2024-02-01'), "
            "('B3','x','2024-01-09'), ('B4','d','2023-12-31'), ('B5','d','2024-03-03');"
            "INSERT INTO 行 VALUES ('B1','a1',10.1,1), ('b1','A1',0.2,NULL), ('B1','b2',5,0.5), "
            "('B2','B2',7.35,0.7), ('B2',NULL,3,0), ('B3','a1',99,9), ('B4','a1',1,0), "
            "('B5','c3',0.1,0.01), ('B5','c3',0.2,0.02), ('B5','a1',-4,-0.4);");
        sqlite3_open_v2(file.Path().c_str(), &db, SQLITE_OPEN_READONLY, nullptr);
        RegisterTsqlFunctions(db);
    }
    void TearDown() override { sqlite3_close(db); }

    std::string Translated(const std::string& sql, bool shared) {
        DialectContext c;
        c.shareDerivedTables = shared;
        return TranslateTsqlToSqlite(sql, c);
    }

    // Every row, its values joined by ',', rows by '|'.
    std::string Rows(const std::string& sql) {
        std::string out;
        sqlite3_stmt* s = nullptr;
        if (sqlite3_prepare_v2(db, sql.c_str(), -1, &s, nullptr) != SQLITE_OK)
            return std::string("error: ") + sqlite3_errmsg(db);
        while (sqlite3_step(s) == SQLITE_ROW) {
            for (int i = 0; i < sqlite3_column_count(s); ++i) {
                const auto* v = sqlite3_column_text(s, i);
                out += (v ? reinterpret_cast<const char*>(v) : "<null>") + std::string(",");
            }
            out += "|";
        }
        sqlite3_finalize(s);
        return out;
    }

    TempSqliteFile file;
    sqlite3* db = nullptr;
};

// One item's sums by bill, as the invoice detail writes them.
std::string Item(int i, const std::string& codes, const std::string& extra = "") {
    const std::string n = std::to_string(i);
    return " LEFT Join (Select SUM(行.金额-(Case When 行.税额 Is Null Then 0 Else 行.税额 End)) as 项" + n +
           " ,SUM(行.税额) as 税" + n +
           ", 行.票据编号 From 行 Inner Join 票据 on 行.票据编号 = 票据.票据编号" +
           " Where (部门 = 'd' Or 部门 Is Null) And 日期 >= '2024-01-01'" + extra + " And 代号 in (" + codes +
           ") Group by 行.票据编号) B" + n + " On 票据.票据编号 = B" + n + ".票据编号";
}

std::string Statement(const std::vector<std::string>& items, const std::string& columns,
                      bool ordered = true) {
    std::string sql = "Select 票据.票据编号, " + columns + " From 票据";
    for (const std::string& item : items) sql += item;
    return ordered ? sql + " Order by 票据.票据编号" : sql;
}

TEST_F(SharedDerivedTables, AFamilyReadsOnceAndGivesTheSameRows) {
    const std::string cases[] = {
        Statement({Item(1, "'A1'"), Item(2, "'b2'"), Item(3, "'c3'")},
                  "B1.项1, B1.税1, B2.项2, B3.项3, B3.税3"),
        // Lists that overlap, and one of two codes.
        Statement({Item(1, "'a1', 'c3'"), Item(2, "'c3'"), Item(3, "'zz'")}, "B1.项1, B2.项2, B3.项3"),
        // Both halves of a union share one table.
        Statement({Item(1, "'a1'"), Item(2, "'b2'")}, "B1.项1, B2.项2", false) + " Union All " +
            Statement({Item(1, "'c3'"), Item(2, "'a1'")}, "B1.项1, B2.项2"),
    };
    for (const std::string& sql : cases) {
        SCOPED_TRACE(sql);
        const std::string shared = Translated(sql, true);
        ASSERT_NE(shared.find("quillon_shared_1 AS MATERIALIZED"), std::string::npos) << shared;
        EXPECT_EQ(shared.find("quillon_shared_2"), std::string::npos) << "one family, one table";
        const std::string expected = Rows(Translated(sql, false));
        ASSERT_EQ(expected.find("error"), std::string::npos) << expected;
        EXPECT_EQ(Rows(shared), expected);
    }
}

TEST_F(SharedDerivedTables, LeavesAloneWhatItCannotShowEqual) {
    const std::string plain = "SUM(行.金额) as 项{n}, 行.票据编号";
    auto item = [](int n, const std::string& head, const std::string& where, const std::string& tail = "") {
        const std::string i = std::to_string(n);
        std::string h = head;
        for (size_t at; (at = h.find("{n}")) != std::string::npos;) h.replace(at, 3, i);
        return " LEFT Join (Select " + h + " From 行 Inner Join 票据 on 行.票据编号 = 票据.票据编号 Where " +
               where + " Group by 行.票据编号" + tail + ") B" + i + " On 票据.票据编号 = B" + i + ".票据编号";
    };
    struct Case {
        const char* why;
        std::string sql;
    } cases[] = {
        {"a single derived table gains nothing", Statement({Item(1, "'a1'")}, "B1.项1")},
        {"the lists sit under an OR", Statement({item(1, plain, "部门 = 'd' Or 代号 in ('a1')"),
                                                 item(2, plain, "部门 = 'd' Or 代号 in ('b2')")},
                                                "B1.项1, B2.项2")},
        {"a Between's And is no list of conditions",
         Statement({item(1, plain, "日期 Between '2024-01-01' And '2024-12-31' And 代号 in ('a1')"),
                    item(2, plain, "日期 Between '2024-01-01' And '2024-12-31' And 代号 in ('b2')")},
                   "B1.项1, B2.项2")},
        {"other conditions differ",
         Statement({Item(1, "'a1'"), Item(2, "'b2'", " And 部门 = 'd'")}, "B1.项1, B2.项2")},
        {"an alias without AS could be a column",
         Statement({item(1, "SUM(行.金额) 项{n}, 行.票据编号", "代号 in ('a1')"),
                    item(2, "SUM(行.金额) 项{n}, 行.票据编号", "代号 in ('b2')")},
                   "B1.项1, B2.项2")},
        {"a star",
         Statement({item(1, "*", "代号 in ('a1')"), item(2, "*", "代号 in ('b2')")}, "B1.金额, B2.金额")},
        {"a Having", Statement({item(1, plain, "代号 in ('a1')", " Having SUM(行.金额) > 0"),
                                item(2, plain, "代号 in ('b2')", " Having SUM(行.金额) > 0")},
                               "B1.项1, B2.项2")},
        {"codes that are no literals",
         Statement({item(1, plain, "代号 in (行.票据编号)"), item(2, plain, "代号 in (票据.部门)")},
                   "B1.项1, B2.项2")},
        {"a statement that has its own WITH",
         "WITH w AS (Select 1 AS k) " + Statement({Item(1, "'a1'"), Item(2, "'b2'")}, "B1.项1, B2.项2")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Translated(c.sql, true), Translated(c.sql, false));
    }
}

} // namespace
} // namespace quillon
