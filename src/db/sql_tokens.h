// sql_tokens.h — splits T-SQL text into tokens (blanks, comments, literals, bracketed names,
// words, numbers, punctuation) so that the guard and the dialect step never look inside a literal.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillon {

enum class SqlTokenKind { Blank, Comment, String, QuotedName, Word, Number, Punct };

struct SqlToken {
    SqlTokenKind kind;
    std::string text;

    bool IsTrivia() const { return kind == SqlTokenKind::Blank || kind == SqlTokenKind::Comment; }
    bool IsPunct(char c) const { return kind == SqlTokenKind::Punct && text.size() == 1 && text[0] == c; }
    bool IsWord(std::string_view word) const; // case-insensitive keyword test
    bool IsName() const { return kind == SqlTokenKind::Word || kind == SqlTokenKind::QuotedName; }
    // The name without its brackets or quotes, a doubled closing mark read as one.
    std::string Name() const;
};

// Whether the token is one of the keywords, without regard to case.
bool IsAnyWord(const SqlToken& t, std::initializer_list<std::string_view> words);

// Never fails: an unterminated literal or comment runs to the end of the text.
std::vector<SqlToken> TokenizeSql(std::string_view sql);

// The end of the number that starts at s[i] (a digit, or a point before one), as SQL Server reads
// it: digits and points with an exponent ("1e" is a float), or 0x and hex digits.
size_t SqlNumberEnd(std::string_view s, size_t i);

// Index of the next token at or after i that is not a blank or comment; tokens.size() if none.
size_t NextSolid(const std::vector<SqlToken>& tokens, size_t i);

// Index of the ')' that closes the '(' at open; tokens.size() when unbalanced.
size_t MatchingParen(const std::vector<SqlToken>& tokens, size_t open);

// Splits tokens [begin, end) at commas outside parentheses.
std::vector<std::pair<size_t, size_t>> SplitAtCommas(const std::vector<SqlToken>& tokens, size_t begin,
                                                     size_t end);

// The indexes of the tokens of [begin, end) that are not blanks or comments.
std::vector<size_t> Solids(const std::vector<SqlToken>& tokens, size_t begin, size_t end);

} // namespace quillon
