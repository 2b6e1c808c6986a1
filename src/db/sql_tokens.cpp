#include "db/sql_tokens.h"

#include "db/text_fold.h"

namespace quillon {
namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
bool IsHexDigit(char c) {
    return IsDigit(c) || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}
// Bytes of multi-byte UTF-8 characters count as letters: Chinese names are plain words.
bool IsWordStart(char c) {
    auto u = static_cast<unsigned char>(c);
    return u >= 0x80 || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '@' || c == '#';
}
bool IsWordPart(char c) {
    return IsWordStart(c) || IsDigit(c) || c == '$';
}

} // namespace

bool SqlToken::IsWord(std::string_view word) const {
    return kind == SqlTokenKind::Word && EqualsIgnoreAsciiCase(text, word);
}

bool IsAnyWord(const SqlToken& t, std::initializer_list<std::string_view> words) {
    for (auto w : words)
        if (t.IsWord(w)) return true;
    return false;
}

std::string SqlToken::Name() const {
    if (kind != SqlTokenKind::QuotedName || text.size() < 2) return text;
    const char close = text.back();
    std::string name;
    for (size_t i = 1; i + 1 < text.size(); ++i) {
        name += text[i];
        if (text[i] == close) ++i; // a doubled closing mark stands for one
    }
    return name;
}

std::vector<SqlToken> TokenizeSql(std::string_view s) {
    std::vector<SqlToken> out;
    size_t i = 0;
    auto push = [&](SqlTokenKind kind, size_t end) {
        out.push_back(SqlToken{kind, std::string(s.substr(i, end - i))});
        i = end;
    };
    while (i < s.size()) {
        char c = s[i];
        size_t j = i + 1;
        if (IsBlank(c)) {
            while (j < s.size() && IsBlank(s[j])) ++j;
            push(SqlTokenKind::Blank, j);
        } else if (c == '-' && j < s.size() && s[j] == '-') {
            while (j < s.size() && s[j] != '\n') ++j;
            push(SqlTokenKind::Comment, j);
        } else if (c == '/' && j < s.size() && s[j] == '*') {
            // Block comments nest, as SQL Server reads them: "/* /* */ x */" is one comment.
            ++j;
            for (int depth = 1; depth > 0 && j < s.size();) {
                if (s.compare(j, 2, "/*") == 0) {
                    ++depth;
                    j += 2;
                } else if (s.compare(j, 2, "*/") == 0) {
                    --depth;
                    j += 2;
                } else {
                    ++j;
                }
            }
            push(SqlTokenKind::Comment, j);
        } else if (c == '\'' || c == '[' || c == '"' ||
                   ((c == 'N' || c == 'n') && j < s.size() && s[j] == '\'')) {
            // A literal, or a name in brackets or double quotes: a doubled closing mark inside
            // stands for one ('it''s', [a]]b], "a""b").
            if (c != '\'' && c != '[' && c != '"') ++j;
            const char close = c == '[' ? ']' : c == '"' ? '"' : '\'';
            for (;;) {
                if (j >= s.size()) break;
                if (s[j] == close) {
                    if (j + 1 < s.size() && s[j + 1] == close) {
                        j += 2;
                        continue;
                    }
                    ++j;
                    break;
                }
                ++j;
            }
            push(c == '[' || c == '"' ? SqlTokenKind::QuotedName : SqlTokenKind::String, j);
        } else if (IsDigit(c) || (c == '.' && j < s.size() && IsDigit(s[j]))) {
            push(SqlTokenKind::Number, SqlNumberEnd(s, i));
        } else if (IsWordStart(c)) {
            while (j < s.size() && IsWordPart(s[j])) ++j;
            push(SqlTokenKind::Word, j);
        } else {
            static constexpr std::string_view kTwoChar[] = {"<=", ">=", "<>", "!=", "!<", "!>"};
            for (auto op : kTwoChar)
                if (s.substr(i, 2) == op) j = i + 2;
            push(SqlTokenKind::Punct, j);
        }
    }
    return out;
}

size_t SqlNumberEnd(std::string_view s, size_t i) {
    size_t j = i + 1;
    if (s[i] == '0' && j < s.size() && (s[j] == 'x' || s[j] == 'X')) {
        // A binary literal takes its hex digits, as SQL Server reads 0xAINSERT as 0xA INSERT.
        ++j;
        while (j < s.size() && IsHexDigit(s[j])) ++j;
        return j;
    }
    while (j < s.size() && (IsDigit(s[j]) || s[j] == '.')) ++j;
    // SQL Server takes "1e" for a float: the word after the E stands on its own.
    if (j < s.size() && (s[j] == 'e' || s[j] == 'E')) {
        ++j;
        if (j + 1 < s.size() && (s[j] == '+' || s[j] == '-') && IsDigit(s[j + 1])) ++j;
        while (j < s.size() && IsDigit(s[j])) ++j;
    }
    return j;
}

size_t NextSolid(const std::vector<SqlToken>& tokens, size_t i) {
    while (i < tokens.size() && tokens[i].IsTrivia()) ++i;
    return i;
}

size_t MatchingParen(const std::vector<SqlToken>& tokens, size_t open) {
    int depth = 0;
    for (size_t i = open; i < tokens.size(); ++i) {
        if (tokens[i].IsPunct('(')) ++depth;
        if (tokens[i].IsPunct(')') && --depth == 0) return i;
    }
    return tokens.size();
}

std::vector<std::pair<size_t, size_t>> SplitAtCommas(const std::vector<SqlToken>& tokens, size_t begin,
                                                     size_t end) {
    std::vector<std::pair<size_t, size_t>> parts;
    int depth = 0;
    size_t start = begin;
    for (size_t i = begin; i < end; ++i) {
        if (tokens[i].IsPunct('('))
            ++depth;
        else if (tokens[i].IsPunct(')'))
            --depth;
        else if (depth == 0 && tokens[i].IsPunct(',')) {
            parts.emplace_back(start, i);
            start = i + 1;
        }
    }
    parts.emplace_back(start, end);
    return parts;
}

std::vector<size_t> Solids(const std::vector<SqlToken>& tokens, size_t begin, size_t end) {
    std::vector<size_t> out;
    for (size_t i = begin; i < end; ++i)
        if (!tokens[i].IsTrivia()) out.push_back(i);
    return out;
}

} // namespace quillon
