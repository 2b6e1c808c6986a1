// Any text into the read-only guard and the dialect step: nothing may crash, the only failure
// is a DbError, and no text gets through the guard unless two checks of their own agree it is
// one SELECT: a reading of the text as SQL Server lexes it (nested comments, doubled closing
// brackets and quotes, a lone CR read both ways), and SQLite, which must find the translated statement
// read-only.
#include <sqlite3.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "db/db_error.h"
#include "db/select_guard.h"
#include "db/tsql_dialect.h"

namespace {

using quillon::DbError;

[[noreturn]] void Fail(const char* why, std::string_view sql) {
    std::fprintf(stderr, "guard let through (%s): %.*s\n", why, static_cast<int>(sql.size()), sql.data());
    std::abort();
}

// ---- SQL Server's reading of the text ----

// What the server treats as code: names (a letter, '_', '@', '#' or a CJK ideograph, then any of
// those, digits and '$'; every other character ends one, a full-width blank too) and single
// punctuation marks. A keyword is a whole name.
struct CodeItem {
    std::string word; // upper-cased; empty for punctuation
    char punct = 0;
};

bool IsLatin(unsigned char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

// Length of the UTF-8 CJK ideograph at s[i], 0 if there is none.
size_t IdeographAt(std::string_view s, size_t i) {
    auto b = [&](size_t k) { return static_cast<unsigned char>(s[i + k]); };
    auto cont = [&](size_t k) { return i + k < s.size() && (b(k) & 0xC0) == 0x80; };
    if (b(0) >= 0xE0 && b(0) < 0xF0 && cont(1) && cont(2)) {
        char32_t cp = ((b(0) & 0x0F) << 12) | ((b(1) & 0x3F) << 6) | (b(2) & 0x3F);
        if ((cp >= 0x3400 && cp <= 0x4DBF) || (cp >= 0x4E00 && cp <= 0x9FFF) ||
            (cp >= 0xF900 && cp <= 0xFAFF))
            return 3;
    }
    if (b(0) >= 0xF0 && b(0) < 0xF8 && cont(1) && cont(2) && cont(3)) {
        char32_t cp = ((b(0) & 0x07) << 18) | ((b(1) & 0x3F) << 12) | ((b(2) & 0x3F) << 6) | (b(3) & 0x3F);
        if (cp >= 0x20000 && cp <= 0x3134F) return 4;
    }
    return 0;
}

// Reads the text as the server would; false when it cannot be read at all (an unclosed
// literal, name or comment), in which case the server runs nothing of it. Whether a lone CR
// ends a line comment is not known here: both readings are made.
bool ServerCode(std::string_view s, bool crEndsLine, std::vector<CodeItem>& items) {
    size_t i = 0;
    std::string word;
    auto endWord = [&] {
        if (!word.empty()) items.push_back({word});
        word.clear();
    };
    // Skips a quoted part opened at s[i] and closed by `close`, a doubled `close` standing for one.
    auto skipQuoted = [&](char close) {
        for (size_t k = i + 1; k < s.size(); ++k) {
            if (s[k] != close) continue;
            if (k + 1 < s.size() && s[k + 1] == close) {
                ++k;
                continue;
            }
            i = k + 1;
            return true;
        }
        return false;
    };
    while (i < s.size()) {
        const auto c = static_cast<unsigned char>(s[i]);
        const bool inName = !word.empty();
        if (IsLatin(c) || c == '@' || c == '#' || (inName && ((c >= '0' && c <= '9') || c == '$'))) {
            word += static_cast<char>(c >= 'a' && c <= 'z' ? c - 32 : c);
            ++i;
            continue;
        }
        if (size_t n = IdeographAt(s, i)) {
            word.append(s.substr(i, n));
            i += n;
            continue;
        }
        endWord();
        if (c == '\'' || c == '"' || c == '[') {
            if (!skipQuoted(c == '[' ? ']' : static_cast<char>(c))) return false;
            items.push_back({"", '\''}); // a literal or a name: code, but no keyword
        } else if (c == '-' && i + 1 < s.size() && s[i + 1] == '-') {
            while (i < s.size() && s[i] != '\n' && !(crEndsLine && s[i] == '\r')) ++i;
        } else if (c == '/' && i + 1 < s.size() && s[i + 1] == '*') {
            int depth = 0;
            do {
                if (i + 1 < s.size() && s[i] == '/' && s[i + 1] == '*') {
                    ++depth;
                    i += 2;
                } else if (i + 1 < s.size() && s[i] == '*' && s[i + 1] == '/') {
                    --depth;
                    i += 2;
                } else if (++i >= s.size()) {
                    return false;
                }
            } while (depth > 0);
        } else if (c >= '0' && c <= '9') {
            // A number: 0x and hex digits, or digits and points with an exponent ("1e" too).
            auto digit = [&](size_t k) { return k < s.size() && s[k] >= '0' && s[k] <= '9'; };
            if (c == '0' && i + 1 < s.size() && (s[i + 1] | 0x20) == 'x') {
                i += 2;
                while (i < s.size() && (digit(i) || ((s[i] | 0x20) >= 'a' && (s[i] | 0x20) <= 'f'))) ++i;
            } else {
                while (digit(i) || (i < s.size() && s[i] == '.')) ++i;
                if (i < s.size() && (s[i] | 0x20) == 'e') {
                    ++i;
                    if (i < s.size() && (s[i] == '+' || s[i] == '-') && digit(i + 1)) ++i;
                    while (digit(i)) ++i;
                }
            }
            items.push_back({"", '0'});
        } else {
            if (c > ' ' && c != 0x7F && c < 0x80) items.push_back({"", static_cast<char>(c)});
            ++i;
        }
    }
    endWord();
    return true;
}

// Statements that write, and words that open another statement, in T-SQL.
const char* const kWriting[] = {
    "INSERT",     "UPDATE",         "DELETE",  "MERGE",     "EXEC",        "EXECUTE",
    "DROP",       "CREATE",         "ALTER",   "TRUNCATE",  "INTO",        "GRANT",
    "REVOKE",     "DENY",           "DECLARE", "SET",       "USE",         "BEGIN",
    "COMMIT",     "ROLLBACK",       "SAVE",    "WAITFOR",   "BULK",        "DBCC",
    "BACKUP",     "RESTORE",        "KILL",    "SHUTDOWN",  "RECONFIGURE", "OPENQUERY",
    "OPENROWSET", "OPENDATASOURCE", "CALL",    "WRITETEXT", "UPDATETEXT",  "NEXT",
    "RECEIVE",    "SEND",           "IF",      "WHILE",     "GOTO",        "RETURN",
    "PRINT",      "RAISERROR",      "OPEN",    "CLOSE",     "FETCH",       "DEALLOCATE",
    "TRIGGER",
};

void CheckServerReading(std::string_view sql, bool crEndsLine) {
    std::vector<CodeItem> items;
    if (!ServerCode(sql, crEndsLine, items)) return; // the server refuses the whole batch
    if (items.empty() || items[0].word != "SELECT") Fail("not a SELECT", sql);
    for (size_t i = 1; i < items.size(); ++i) {
        const CodeItem& item = items[i];
        if (item.punct == ';') {
            for (size_t k = i + 1; k < items.size(); ++k)
                if (items[k].punct != ';') Fail("a statement after ';'", sql);
            return;
        }
        for (const char* w : kWriting)
            if (item.word == w) Fail("a writing word", sql);
        if (item.word == "SELECT") {
            const CodeItem& p = items[i - 1];
            const bool ok = p.punct == '(' || p.word == "UNION" || p.word == "EXCEPT" ||
                            p.word == "INTERSECT" ||
                            (p.word == "ALL" && i >= 2 && items[i - 2].word == "UNION");
            if (!ok) Fail("a second SELECT", sql);
        }
    }
}

// ---- SQLite's reading of the translated text ----

sqlite3* Database() {
    static sqlite3* db = [] {
        sqlite3* d = nullptr;
        sqlite3_open_v2(":memory:", &d, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
        sqlite3_exec(d, "CREATE TABLE t (a, b); CREATE TABLE 票据 (票据编号, 金额, 开票日期)", nullptr,
                     nullptr, nullptr);
        quillon::RegisterTsqlFunctions(d);
        return d;
    }();
    return db;
}

std::vector<std::string> ColumnsOf(const std::string& table) {
    if (table == "t") return {"a", "b"};
    if (table == "票据") return {"票据编号", "金额", "开票日期"};
    return {};
}

void CheckSqliteReading(std::string_view sql, const std::string& translated) {
    sqlite3_stmt* stmt = nullptr;
    if (sqlite3_prepare_v2(Database(), translated.c_str(), static_cast<int>(translated.size()), &stmt,
                           nullptr) != SQLITE_OK)
        return;
    const bool readOnly = !stmt || sqlite3_stmt_readonly(stmt);
    sqlite3_finalize(stmt);
    if (!readOnly) Fail("SQLite finds a write", sql);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view sql(reinterpret_cast<const char*>(data), size);
    std::string translated;
    bool translatedOk = true;
    try {
        // 开票日期 counts as holding dates, so that the date filters are made ranges too.
        const quillon::DialectContext context{
            ColumnsOf, [](const std::string&, const std::string& column) { return column == "开票日期"; }};
        translated = quillon::TranslateTsqlToSqlite(sql, context);
    } catch (const DbError&) {
        translatedOk = false;
    }
    try {
        quillon::EnsureSingleSelect(sql);
    } catch (const DbError&) {
        return 0;
    }
    CheckServerReading(sql, false);
    CheckServerReading(sql, true);
    if (translatedOk) CheckSqliteReading(sql, translated);
    return 0;
}
