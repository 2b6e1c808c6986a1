#include "db/select_guard.h"

#include <algorithm>
#include <vector>

#include "base/utf8.h"
#include "db/db_error.h"
#include "db/sql_tokens.h"
#include "db/text_fold.h"

namespace quillon {
namespace {

// Words that write, or that begin a statement of their own. SQL Server needs no ';' between
// the statements of a batch, so "SELECT 1 DELETE FROM t" is two statements: any of these words
// outside literals, names in brackets and comments means the text is more than one SELECT.
// All are reserved in T-SQL (so no SELECT uses them bare) but for the few of Service Broker
// and ODBC's {call …}, which no billing database names a column after.
constexpr std::string_view kStatementWords[] = {
    "ALTER",      "BACKUP",     "BEGIN",     "BREAK",        "BULK",        "CALL",           "CHECKPOINT",
    "CLOSE",      "COMMIT",     "CONTINUE",  "CONVERSATION", "CREATE",      "CURSOR",         "DBCC",
    "DEALLOCATE", "DECLARE",    "DELETE",    "DENY",         "DROP",        "DUMP",           "EXEC",
    "EXECUTE",    "FETCH",      "GOTO",      "GRANT",        "IF",          "INSERT",         "INTO",
    "KILL",       "LOAD",       "MERGE",     "NEXT",         "OPEN",        "OPENDATASOURCE", "OPENQUERY",
    "OPENROWSET", "PRINT",      "RAISERROR", "READTEXT",     "RECEIVE",     "RECONFIGURE",    "RESTORE",
    "RETURN",     "REVERT",     "REVOKE",    "ROLLBACK",     "SAVE",        "SEND",           "SET",
    "SETUSER",    "SHUTDOWN",   "THROW",     "TRAN",         "TRANSACTION", "TRIGGER",        "TRUNCATE",
    "UPDATE",     "UPDATETEXT", "USE",       "WAITFOR",      "WHILE",       "WRITETEXT",
};

[[noreturn]] void Refuse(const std::string& why) {
    throw DbError(kAdoErrBadStatement, "本程序只读取数据库，语句被拒绝: " + why);
}

// CJK ideographs: letters of a name to SQL Server, so "IF卡费" is one name, not IF.
bool IsIdeograph(char32_t cp) {
    return (cp >= 0x3400 && cp <= 0x4DBF) || (cp >= 0x4E00 && cp <= 0x9FFF) ||
           (cp >= 0xF900 && cp <= 0xFAFF) || (cp >= 0x20000 && cp <= 0x3134F);
}

// The keyword candidates of a word: its runs of Latin letters, '_' and ideographs. Digits,
// '@', '#', '$' and every other character (a full-width blank, a broken byte) split it, since
// a server may read a keyword after any of them. Digits and '$' continue a name but begin
// none: outside a name a digit begins a number, as it would after a blank ("　0xAINSERT" and
// "　$0xAINSERT" hold 0xA and INSERT).
std::vector<std::string_view> KeywordRuns(std::string_view word) {
    std::vector<std::string_view> runs;
    size_t start = 0, i = 0;
    bool inName = false; // the last character continues a name: a digit here is no number
    auto close = [&](size_t end) {
        if (end > start) runs.push_back(word.substr(start, end - start));
    };
    while (i < word.size()) {
        const char c = word[i];
        const bool latin = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
        const bool digit = c >= '0' && c <= '9';
        const Utf8Char ch = Utf8At(word, i);
        size_t length = ch.length;
        if (latin || IsIdeograph(ch.codePoint)) {
            inName = true;
        } else {
            close(i);
            if (digit && !inName) length = SqlNumberEnd(word, i) - i;
            inName = c == '@' || c == '#' || (inName && (digit || c == '$'));
            start = i + length;
        }
        i += length;
    }
    close(word.size());
    return runs;
}

bool IsStatementWord(std::string_view run) {
    return std::any_of(std::begin(kStatementWords), std::end(kStatementWords),
                       [&](std::string_view w) { return EqualsIgnoreAsciiCase(run, w); });
}

// A SELECT after the first one is a subquery or a set operation's operand only right after
// "(", UNION [ALL], EXCEPT or INTERSECT; anywhere else it begins a second statement.
bool OpensSubquery(const std::vector<SqlToken>& tokens, size_t select) {
    size_t prev = select;
    auto before = [&]() -> const SqlToken* {
        while (prev > 0 && tokens[prev - 1].IsTrivia()) --prev;
        return prev > 0 ? &tokens[--prev] : nullptr;
    };
    const SqlToken* t = before();
    if (!t) return false;
    if (t->IsPunct('(') || t->IsWord("UNION") || t->IsWord("EXCEPT") || t->IsWord("INTERSECT")) return true;
    if (!t->IsWord("ALL")) return false;
    t = before();
    return t && t->IsWord("UNION");
}

} // namespace

void EnsureSingleSelect(std::string_view sql) {
    // A driver reads the text only up to a NUL: the guard must judge what the driver sees.
    if (sql.find('\0') != sql.npos) Refuse("语句中有空字符");
    auto tokens = TokenizeSql(sql);
    // Whether a lone CR ends a line comment is the server's to say: either way, what follows it
    // would be read otherwise here than there.
    auto ensureLineEnds = [](const SqlToken& t) {
        if (t.kind == SqlTokenKind::Comment && t.text.starts_with("--") &&
            t.text.find('\r') + 1 < t.text.size())
            Refuse("注释中有单独的回车");
    };
    size_t first = NextSolid(tokens, 0);
    for (size_t i = 0; i < first; ++i) ensureLineEnds(tokens[i]);
    if (first == tokens.size()) Refuse("空语句");
    if (!tokens[first].IsWord("SELECT")) Refuse("不是 SELECT 语句");
    for (size_t i = first + 1; i < tokens.size(); ++i) {
        const SqlToken& t = tokens[i];
        ensureLineEnds(t);
        if (t.IsPunct(';')) {
            for (size_t k = i + 1; k < tokens.size(); ++k) {
                ensureLineEnds(tokens[k]);
                if (!tokens[k].IsTrivia() && !tokens[k].IsPunct(';')) Refuse("分号后还有第二条语句");
            }
            break;
        }
        if (t.kind != SqlTokenKind::Word) continue;
        // SELECT … INTO creates a table on SQL Server.
        if (t.IsWord("INTO")) Refuse("SELECT … INTO 会写入数据库");
        if (t.IsWord("SELECT")) {
            if (!OpensSubquery(tokens, i)) Refuse("第二个 SELECT 开始了第二条语句");
            continue;
        }
        for (std::string_view run : KeywordRuns(t.text)) {
            if (IsStatementWord(run))
                Refuse("语句中有 " + std::string(run) + "，会写入数据库或开始第二条语句");
            if (EqualsIgnoreAsciiCase(run, "SELECT")) Refuse("第二个 SELECT 开始了第二条语句");
        }
    }
}

} // namespace quillon
