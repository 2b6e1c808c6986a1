// Every statement every report sends, run as the SQLite dialect step rewrites it for speed (date
// filters made ranges, the derived tables of one family sharing their rows) and as it was, on
// demo databases sprinkled with edge dates: the rows, their values and their order must be the
// same.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <cctype>
#include <functional>
#include <random>
#include <set>

#include "db/tsql_dialect.h"
#include "demo_reports.h"

namespace quillon {
namespace {

// Dates a range could get wrong, most of them inside the demo's two years so that the reports
// see them: month and year ends, 29 February, time parts with fractions, midnight, far past.
const char* const kEdgeDates[] = {
    "2024-01-01 00:00:00", "2024-01-31 23:59:59",     "2024-02-29",          "2024-02-29 23:59:59.997",
    "2024-03-01",          "2024-06-30 23:59:59",     "2024-07-01 00:00:00", "2024-09-30",
    "2024-10-01 00:00:01", "2024-12-31 23:59:59.997", "2024-12-31",          "2025-01-01 00:00:00",
    "2025-02-28 12:00",    "2025-12-31 23:59:59",     "1900-01-01",          "1753-01-01 00:00:00",
};

// Gives one bill in four an edge date in one of its date columns (收款日期 may also lose its date).
void SprinkleEdgeDates(const std::string& path, unsigned seed) {
    sqlite3* db = nullptr;
    ASSERT_EQ(sqlite3_open(path.c_str(), &db), SQLITE_OK);
    std::mt19937 rng(seed);
    const char* const columns[] = {"开票日期", "收款日期", "收款日期", "作废日期", "退票日期", "内换日期"};
    sqlite3_exec(db, "BEGIN", nullptr, nullptr, nullptr);
    sqlite3_stmt* ids = nullptr;
    sqlite3_prepare_v2(db, "SELECT ID FROM 票据 WHERE ID % 4 = 0", -1, &ids, nullptr);
    std::vector<long long> picked;
    while (sqlite3_step(ids) == SQLITE_ROW) picked.push_back(sqlite3_column_int64(ids, 0));
    sqlite3_finalize(ids);
    for (long long id : picked) {
        const std::string column = columns[rng() % std::size(columns)];
        std::string value = std::string("'") + kEdgeDates[rng() % std::size(kEdgeDates)] + "'";
        if (column == "收款日期" && rng() % 5 == 0) value = "NULL";
        const std::string sql =
            "UPDATE 票据 SET " + column + " = " + value + " WHERE ID = " + std::to_string(id);
        ASSERT_EQ(sqlite3_exec(db, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK) << sql;
    }
    sqlite3_exec(db, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_close(db);
}

// Runs every report with a spread of criteria, and gives the statements they sent.
std::set<std::string> StatementsOfEveryReport(DemoSession& s) {
    std::set<std::string> sent;
    s.session.DbConnection->OnStatement = [&sent](const std::string& sql) { sent.insert(sql); };
    RunRecon<frm票据核对表>(s, "010101", "2024", "01", "12");
    RunRecon<frm票据核对表New>(s, "010101", "2024", "02", "03");
    RunRecon<frm票据核对表New>(s, "0104", "2025", "01", "12");
    RunDeptRate(s, "2024-01-01", "2024-12-31");
    RunDeptRate(s, "2024-02-29", "2025-01-01");
    RunSummary(s, "2024-01-01", "2024-12-31");
    RunSummary(s, "2025-02-01", "2025-02-28");
    for (const char* entry : {"010101", "0104"}) {
        RunDetail<frm票据预开明细表New>(s, entry);
        RunDetail<frm票据开票明细表New>(s, entry);
        RunDetail<frm停车费明细表New>(s, entry);
        RunDetail<frm票据开票明细表New>(s, entry, "2024-02-29", "2024-03-31");
        RunDetail<frm停车费明细表New>(s, entry, "2024-12-31", "2025-01-01");
    }
    s.session.DbConnection->OnStatement = nullptr;
    return sent;
}

bool HasOwnOrderBy(const std::string& sql) {
    std::string lower = sql;
    for (char& c : lower) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    const size_t orderBy = lower.rfind("order by");
    return orderBy != std::string::npos &&
           (lower.rfind(')') == std::string::npos || orderBy > lower.rfind(')'));
}

class ReadOnlyDb {
public:
    explicit ReadOnlyDb(const std::string& path) {
        sqlite3_open_v2(path.c_str(), &db_, SQLITE_OPEN_READONLY, nullptr);
        RegisterTsqlFunctions(db_);
    }
    ~ReadOnlyDb() { sqlite3_close(db_); }

    DialectContext Context(bool ranges, bool shared) {
        DialectContext c;
        c.shareDerivedTables = shared;
        c.columns = [this](const std::string& table) {
            std::vector<std::string> names;
            sqlite3_stmt* st = nullptr;
            sqlite3_prepare_v2(db_, "SELECT name FROM pragma_table_info(?)", -1, &st, nullptr);
            sqlite3_bind_text(st, 1, table.c_str(), -1, SQLITE_TRANSIENT);
            while (sqlite3_step(st) == SQLITE_ROW)
                names.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(st, 0)));
            sqlite3_finalize(st);
            return names;
        };
        if (ranges)
            c.isoDates = [this](const std::string& t, const std::string& col) {
                return ColumnHoldsIsoDates(db_, t, col);
            };
        return c;
    }

    // Every row as its values' types and texts, in the order given.
    std::vector<std::string> Rows(const std::string& sql) {
        std::vector<std::string> rows;
        sqlite3_stmt* st = nullptr;
        if (sqlite3_prepare_v2(db_, sql.c_str(), -1, &st, nullptr) != SQLITE_OK)
            return {std::string("error: ") + sqlite3_errmsg(db_)};
        while (sqlite3_step(st) == SQLITE_ROW) {
            std::string row;
            for (int i = 0; i < sqlite3_column_count(st); ++i) {
                const auto* text = sqlite3_column_text(st, i);
                row += std::to_string(sqlite3_column_type(st, i)) + ":" +
                       (text ? reinterpret_cast<const char*>(text) : "") + "\t";
            }
            rows.push_back(row);
        }
        sqlite3_finalize(st);
        return rows;
    }

private:
    sqlite3* db_ = nullptr;
};

struct Compared {
    int rewritten = 0; // statements whose two forms differ, over both databases
    int rows = 0;
};

// Every statement of every report, run in the form `rewrite` gives and in the form `plain`
// gives, on two demo databases sprinkled with edge dates: the same rows, values and order.
Compared CompareEveryStatement(const std::function<DialectContext(ReadOnlyDb&)>& rewrite,
                               const std::function<DialectContext(ReadOnlyDb&)>& plain) {
    DemoSession sent({.invoices = 1200, .seed = 7},
                     [](const std::string& path) { SprinkleEdgeDates(path, 7); });
    const std::set<std::string> statements = StatementsOfEveryReport(sent);
    EXPECT_GT(statements.size(), 100u);

    DemoSession other({.invoices = 900, .seed = 11},
                      [](const std::string& path) { SprinkleEdgeDates(path, 11); });
    Compared compared;
    for (const std::string* path : {&sent.session.ConnectionText, &other.session.ConnectionText}) {
        const std::string file = path->substr(path->find('\'') + 1, path->rfind('\'') - path->find('\'') - 1);
        ReadOnlyDb db(file);
        for (const std::string& sql : statements) {
            const std::string rewritten = TranslateTsqlToSqlite(sql, rewrite(db));
            const std::string asSent = TranslateTsqlToSqlite(sql, plain(db));
            if (rewritten == asSent) continue;
            ++compared.rewritten;
            auto expected = db.Rows(asSent);
            auto actual = db.Rows(rewritten);
            compared.rows += static_cast<int>(expected.size());
            // Without an Order by of its own a statement's order is the engine's choice, on SQL
            // Server too; a range may let SQLite read an index where it scanned the table (the
            // exchanged numbers, which are only searched in). Such rows are compared as a set.
            if (!HasOwnOrderBy(sql)) {
                std::sort(expected.begin(), expected.end());
                std::sort(actual.begin(), actual.end());
            }
            EXPECT_EQ(actual, expected) << sql;
            if (actual != expected) return compared;
        }
    }
    return compared;
}

TEST(DateFilterDifferential, EveryReportStatementGivesTheSameRowsWithRanges) {
    const Compared c = CompareEveryStatement([](ReadOnlyDb& db) { return db.Context(true, false); },
                                             [](ReadOnlyDb& db) { return db.Context(false, false); });
    // Nearly every statement filters by date; the comparison must have had rows to compare.
    EXPECT_GT(c.rewritten, 400);
    EXPECT_GT(c.rows, 1000) << c.rewritten << " statements";
}

// The invoice detail's derived tables, one per charge item, read from one shared table: each
// item's sums, bill by bill, in both forms of the statement (with and without the fund).
TEST(DateFilterDifferential, SharedDerivedTablesGiveTheSameRows) {
    const Compared c = CompareEveryStatement([](ReadOnlyDb& db) { return db.Context(true, true); },
                                             [](ReadOnlyDb& db) { return db.Context(true, false); });
    EXPECT_GE(c.rewritten, 8) << "the invoice detail's statements, in both forms, on both databases";
    EXPECT_GT(c.rows, 500);
}

} // namespace
} // namespace quillon
