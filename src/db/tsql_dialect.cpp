#include "db/tsql_dialect.h"

#include <sqlite3.h>

#include <map>
#include <optional>
#include <string_view>

#include "base/date_time.h"
#include "db/db_error.h"
#include "db/shared_derived_tables.h"
#include "db/sql_tokens.h"
#include "db/text_fold.h"

namespace quillon {
namespace {

using Tokens = std::vector<SqlToken>;

[[noreturn]] void SyntaxError(const std::string& near) {
    // SQL Server's own wording, so a run on SQLite fails the way production would.
    throw DbError(kAdoErrBadStatement, "'" + near + "' 附近有语法错误。");
}

// Finds word at parenthesis depth 0 from `from`, followed by `next` when given.
std::optional<size_t> FindTopLevel(const Tokens& t, size_t from, std::string_view word,
                                   std::string_view next = {}, bool last = false) {
    std::optional<size_t> found;
    int depth = 0;
    for (size_t i = from; i < t.size(); ++i) {
        if (t[i].IsPunct('('))
            ++depth;
        else if (t[i].IsPunct(')'))
            --depth;
        else if (depth == 0 && t[i].IsWord(word)) {
            size_t n = NextSolid(t, i + 1);
            if (next.empty() || (n < t.size() && t[n].IsWord(next))) {
                found = i;
                if (!last) return found;
            }
        }
    }
    return found;
}

// SQL Server binds an unqualified Order by name to a select-list column of that name, such as
// 票据.票据编号; SQLite would call the name ambiguous once another joined table carries it.
// So a bare Order by name that matches an unaliased qualified column of the (first) select
// list is replaced by that column.
void QualifyOrderByNames(Tokens& t) {
    auto select = FindTopLevel(t, 0, "SELECT");
    auto orderBy = FindTopLevel(t, 0, "ORDER", "BY", /*last*/ true);
    if (!select || !orderBy) return;
    size_t listBegin = NextSolid(t, *select + 1);
    while (listBegin < t.size() && (t[listBegin].IsWord("DISTINCT") || t[listBegin].IsWord("ALL")))
        listBegin = NextSolid(t, listBegin + 1);
    auto from = FindTopLevel(t, listBegin, "FROM");
    size_t listEnd = from ? *from : *orderBy;

    struct Column {
        std::string name;      // the column's own name, for a qualified column without alias
        std::string qualified; // its full text, e.g. 票据.票据编号
        std::string alias;     // or the alias it is given
    };
    std::vector<Column> columns;
    for (auto [b, e] : SplitAtCommas(t, listBegin, listEnd)) {
        auto s = Solids(t, b, e);
        Column col;
        if (s.size() == 3 && t[s[0]].IsName() && t[s[1]].IsPunct('.') && t[s[2]].IsName()) {
            col.name = t[s[2]].Name();
            col.qualified = t[s[0]].text + "." + t[s[2]].text;
        } else if (!s.empty() && t[s.back()].IsName()) {
            // "expr AS x", "expr x" and a bare "x" all answer to x.
            const SqlToken* before = s.size() >= 2 ? &t[s[s.size() - 2]] : nullptr;
            if (!before || before->IsWord("AS") || before->IsPunct(')') || before->IsName() ||
                before->kind == SqlTokenKind::Number || before->kind == SqlTokenKind::String)
                col.alias = t[s.back()].Name();
        }
        columns.push_back(std::move(col));
    }

    size_t byIndex = NextSolid(t, *orderBy + 1);
    for (auto [b, e] : SplitAtCommas(t, byIndex + 1, t.size())) {
        auto s = Solids(t, b, e);
        if (s.empty() || !t[s[0]].IsName()) continue;
        if (s.size() > 2 || (s.size() == 2 && !t[s[1]].IsWord("ASC") && !t[s[1]].IsWord("DESC"))) continue;
        std::string name = t[s[0]].Name();
        const Column* match = nullptr;
        bool aliased = false;
        for (const auto& col : columns) {
            if (!col.alias.empty() && EqualsIgnoreAsciiCase(col.alias, name)) aliased = true;
            if (!col.name.empty() && EqualsIgnoreAsciiCase(col.name, name) && !match) match = &col;
        }
        if (match && !aliased) t[s[0]] = SqlToken{SqlTokenKind::Word, match->qualified};
    }
}

bool IsClauseEnd(const SqlToken& t) {
    static constexpr std::string_view kEnds[] = {"INNER", "LEFT",  "RIGHT", "FULL",  "CROSS", "JOIN",
                                                 "WHERE", "GROUP", "ORDER", "UNION", "HAVING"};
    for (auto word : kEnds)
        if (t.IsWord(word)) return true;
    return t.IsPunct(')') || t.IsPunct(',');
}

// One table of a FROM clause: its name (empty for a derived table) and what it is called.
struct JoinedTable {
    std::string table;
    std::string reference;
};

// SQL Server binds an unqualified name in a join's ON to the tables joined so far; SQLite looks
// at every table of the FROM, and calls "Inner join setupsfxm on 收费项目代号=dh Inner Join
// 税控盘收费项目设置 …" ambiguous. So a bare name in an ON that only one table in scope has is
// qualified with that table. Each parenthesised level is its own scope.
void QualifyJoinNames(Tokens& t, const ColumnLookup& lookup) {
    if (!lookup) return;
    std::map<std::string, std::vector<std::string>> cache;
    auto columnsOf = [&](const std::string& table) -> const std::vector<std::string>& {
        auto key = FoldedAscii(table);
        auto it = cache.find(key);
        if (it == cache.end()) it = cache.emplace(key, lookup(table)).first;
        return it->second;
    };
    // scopes[depth]: the tables joined so far at that parenthesis depth.
    std::vector<std::vector<JoinedTable>> scopes(1);
    for (size_t i = 0; i < t.size(); ++i) {
        if (t[i].IsPunct('(')) {
            scopes.emplace_back();
            continue;
        }
        if (t[i].IsPunct(')')) {
            if (scopes.size() > 1) scopes.pop_back();
            continue;
        }
        auto& scope = scopes.back();
        if (t[i].IsWord("FROM") || t[i].IsWord("JOIN")) {
            if (t[i].IsWord("FROM")) scope.clear();
            size_t n = NextSolid(t, i + 1);
            if (n >= t.size()) break;
            JoinedTable joined;
            size_t afterSource = n + 1;
            if (t[n].IsPunct('(')) {
                afterSource = MatchingParen(t, n) + 1; // a derived table: its columns are not known here
            } else if (t[n].IsName()) {
                joined.table = t[n].Name();
                joined.reference = t[n].text;
            }
            size_t a = NextSolid(t, afterSource);
            if (a < t.size() && t[a].IsWord("AS")) a = NextSolid(t, a + 1);
            if (a < t.size() && t[a].IsName() && !t[a].IsWord("ON") && !IsClauseEnd(t[a]))
                joined.reference = t[a].text;
            scope.push_back(joined);
            continue;
        }
        if (!t[i].IsWord("ON")) continue;
        int depth = 0;
        for (size_t k = i + 1; k < t.size(); ++k) {
            if (t[k].IsPunct('('))
                ++depth;
            else if (t[k].IsPunct(')')) {
                if (depth-- == 0) break;
            } else if (depth == 0 && IsClauseEnd(t[k]))
                break;
            if (!t[k].IsName()) continue;
            size_t prev = k;
            while (prev > 0 && t[prev - 1].IsTrivia()) --prev;
            size_t next = NextSolid(t, k + 1);
            bool qualified =
                (prev > 0 && t[prev - 1].IsPunct('.')) || (next < t.size() && t[next].IsPunct('.'));
            bool call = next < t.size() && t[next].IsPunct('(');
            if (qualified || call) continue;
            const JoinedTable* owner = nullptr;
            int owners = 0;
            for (const auto& joined : scope) {
                if (joined.table.empty()) continue;
                for (const auto& column : columnsOf(joined.table))
                    if (EqualsIgnoreAsciiCase(column, t[k].Name())) {
                        owner = &joined;
                        ++owners;
                        break;
                    }
            }
            if (owners == 1) t[k] = SqlToken{SqlTokenKind::Word, owner->reference + "." + t[k].text};
        }
    }
}

// Text of the char(N) length in a CONVERT's first argument; the only conversions the reports
// make are dates to yyyymmdd text (style 112).
std::string CharLength(const Tokens& t, size_t b, size_t e) {
    auto s = Solids(t, b, e);
    bool isChar = !s.empty() && (t[s[0]].IsWord("char") || t[s[0]].IsWord("varchar") ||
                                 t[s[0]].IsWord("nchar") || t[s[0]].IsWord("nvarchar"));
    if (!isChar) SyntaxError(s.empty() ? "," : t[s[0]].text);
    if (s.size() == 1) return "30"; // varchar without length: SQL Server's default of 30 in CONVERT
    if (s.size() != 4 || !t[s[1]].IsPunct('(') || t[s[2]].kind != SqlTokenKind::Number ||
        !t[s[3]].IsPunct(')'))
        SyntaxError(t[s[1]].text);
    return t[s[2]].text;
}

std::string Translate(const Tokens& t, size_t begin, size_t end);

std::string TranslateConvert(const Tokens& t, size_t open, size_t close) {
    auto args = SplitAtCommas(t, open + 1, close);
    if (args.size() < 2 || args.size() > 3) SyntaxError("CONVERT");
    std::string length = CharLength(t, args[0].first, args[0].second);
    std::string style = "0";
    if (args.size() == 3) {
        auto s = Solids(t, args[2].first, args[2].second);
        if (s.size() != 1 || t[s[0]].kind != SqlTokenKind::Number) SyntaxError(")");
        style = t[s[0]].text;
    }
    return "tsql_convert(" + Translate(t, args[1].first, args[1].second) + "," + length + "," + style + ")";
}

std::string Translate(const Tokens& t, size_t begin, size_t end) {
    std::string out;
    for (size_t i = begin; i < end; ++i) {
        const SqlToken& tok = t[i];
        size_t next = NextSolid(t, i + 1);
        bool call = next < end && t[next].IsPunct('(');
        if (tok.IsPunct('+')) {
            out += "||"; // every '+' of this program's statements joins text
        } else if (call && tok.IsWord("CONVERT")) {
            size_t close = MatchingParen(t, next);
            if (close >= end) SyntaxError("(");
            out += TranslateConvert(t, next, close);
            i = close;
        } else if (call && tok.IsWord("len")) {
            out += "tsql_len";
        } else if (call && tok.IsWord("LEFT")) {
            out += "tsql_left";
        } else if (call && tok.IsWord("CHARINDEX")) {
            out += "tsql_charindex";
        } else if (call && tok.IsWord("IN") && NextSolid(t, next + 1) < end &&
                   t[NextSolid(t, next + 1)].IsPunct(')')) {
            SyntaxError(")");
        } else {
            out += tok.text;
        }
    }
    return out;
}

// ---- the functions the translated text calls ----

size_t Utf8Length(std::string_view s) {
    size_t n = 0;
    for (char c : s)
        if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++n;
    return n;
}

// Byte offset of the character with zero-based index `chars` (or the end).
size_t Utf8Offset(std::string_view s, size_t chars) {
    size_t i = 0;
    while (i < s.size() && chars > 0) {
        ++i;
        while (i < s.size() && (static_cast<unsigned char>(s[i]) & 0xC0) == 0x80) ++i;
        --chars;
    }
    return i;
}

// The value as text, without a copy: valid until the value changes.
std::string_view TextViewOf(sqlite3_value* v) {
    const unsigned char* p = sqlite3_value_text(v);
    return p ? std::string_view(reinterpret_cast<const char*>(p), sqlite3_value_bytes(v))
             : std::string_view();
}

std::string TextOf(sqlite3_value* v) {
    return std::string(TextViewOf(v));
}

bool AnyNull(int argc, sqlite3_value** argv) {
    for (int i = 0; i < argc; ++i)
        if (sqlite3_value_type(argv[i]) == SQLITE_NULL) return true;
    return false;
}

void ResultText(sqlite3_context* ctx, const std::string& s) {
    sqlite3_result_text(ctx, s.data(), static_cast<int>(s.size()), SQLITE_TRANSIENT);
}

// CONVERT(char(N), e, 112): a date becomes yyyymmdd, cut to N characters.
void ConvertFn(sqlite3_context* ctx, int, sqlite3_value** argv) {
    if (sqlite3_value_type(argv[0]) == SQLITE_NULL) return sqlite3_result_null(ctx);
    auto length = static_cast<size_t>(std::max(0, sqlite3_value_int(argv[1])));
    int style = sqlite3_value_int(argv[2]);
    if (sqlite3_value_type(argv[0]) == SQLITE_TEXT && style == 112) {
        // Every date filter calls this once a row: the digits are the text's own, no copy made.
        const std::string_view iso = TextViewOf(argv[0]);
        if (DateTime::ParseIso(iso)) {
            const char digits[8] = {iso[0], iso[1], iso[2], iso[3], iso[5], iso[6], iso[8], iso[9]};
            return sqlite3_result_text(ctx, digits, static_cast<int>(std::min<size_t>(length, 8)),
                                       SQLITE_TRANSIENT);
        }
    }
    const std::string text = TextOf(argv[0]);
    ResultText(ctx, text.substr(0, Utf8Offset(text, length)));
}

// 1 for text that CONVERT(…,112) reads as a date, so that its yyyymmdd are the text's own
// digits in place; the date filters are made ranges only on columns of such values.
void IsIsoDateFn(sqlite3_context* ctx, int, sqlite3_value** argv) {
    bool iso =
        sqlite3_value_type(argv[0]) == SQLITE_TEXT && DateTime::ParseIso(TextViewOf(argv[0])).has_value();
    sqlite3_result_int(ctx, iso ? 1 : 0);
}

// len(s): characters, trailing blanks not counted.
void LenFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (AnyNull(argc, argv)) return sqlite3_result_null(ctx);
    std::string s = TextOf(argv[0]);
    while (!s.empty() && s.back() == ' ') s.pop_back();
    sqlite3_result_int64(ctx, static_cast<sqlite3_int64>(Utf8Length(s)));
}

void LeftFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (AnyNull(argc, argv)) return sqlite3_result_null(ctx);
    sqlite3_int64 n = sqlite3_value_int64(argv[1]);
    if (n < 0) return sqlite3_result_error(ctx, "传递到 LEFT 或 SUBSTRING 函数的长度参数无效。", -1);
    std::string s = TextOf(argv[0]);
    ResultText(ctx, s.substr(0, Utf8Offset(s, static_cast<size_t>(n))));
}

// CHARINDEX(find, s[, start]): 1-based character position, 0 when absent; Latin letters
// compare without case, as under the database's case-insensitive collation.
void CharIndexFn(sqlite3_context* ctx, int argc, sqlite3_value** argv) {
    if (AnyNull(argc, argv)) return sqlite3_result_null(ctx);
    std::string find = FoldedAscii(TextOf(argv[0]));
    std::string s = FoldedAscii(TextOf(argv[1]));
    sqlite3_int64 start = argc > 2 ? sqlite3_value_int64(argv[2]) : 1;
    if (start < 1) start = 1;
    if (find.empty()) return sqlite3_result_int64(ctx, 0);
    size_t from = Utf8Offset(s, static_cast<size_t>(start - 1));
    size_t at = s.find(find, from);
    sqlite3_result_int64(ctx, at == s.npos ? 0 : static_cast<sqlite3_int64>(Utf8Length(s.substr(0, at)) + 1));
}

} // namespace

std::string TranslateTsqlToSqlite(std::string_view tsql, const DialectContext& context) {
    Tokens tokens = TokenizeSql(tsql);
    QualifyOrderByNames(tokens);
    QualifyJoinNames(tokens, context.columns);
    RewriteDateComparisons(tokens, context.columns, context.isoDates);
    if (context.shareDerivedTables) ShareDerivedTables(tokens);
    return Translate(tokens, 0, tokens.size());
}

void RegisterTsqlFunctions(sqlite3* db) {
    const int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    sqlite3_create_function(db, "tsql_convert", 3, flags, nullptr, ConvertFn, nullptr, nullptr);
    sqlite3_create_function(db, "tsql_len", 1, flags, nullptr, LenFn, nullptr, nullptr);
    sqlite3_create_function(db, "tsql_left", 2, flags, nullptr, LeftFn, nullptr, nullptr);
    sqlite3_create_function(db, "tsql_charindex", 2, flags, nullptr, CharIndexFn, nullptr, nullptr);
    sqlite3_create_function(db, "tsql_charindex", 3, flags, nullptr, CharIndexFn, nullptr, nullptr);
    sqlite3_create_function(db, "tsql_is_iso_date", 1, flags, nullptr, IsIsoDateFn, nullptr, nullptr);
}

bool ColumnHoldsIsoDates(sqlite3* db, const std::string& table, const std::string& column) {
    auto quoted = [](const std::string& name) {
        std::string out = "\"";
        for (char c : name) out += c == '"' ? std::string("\"\"") : std::string(1, c);
        return out + "\"";
    };
    const std::string sql = "SELECT NOT EXISTS (SELECT 1 FROM " + quoted(table) + " WHERE " + quoted(column) +
                            " IS NOT NULL AND NOT tsql_is_iso_date(" + quoted(column) + "))";
    sqlite3_stmt* stmt = nullptr;
    bool iso = false;
    if (sqlite3_prepare_v2(db, sql.c_str(), -1, &stmt, nullptr) == SQLITE_OK &&
        sqlite3_step(stmt) == SQLITE_ROW)
        iso = sqlite3_column_int(stmt, 0) == 1;
    sqlite3_finalize(stmt);
    return iso;
}

} // namespace quillon
