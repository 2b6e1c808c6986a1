#include "db/date_range_rewrite.h"

#include <optional>

#include "db/text_fold.h"

namespace quillon {
namespace {

using Tokens = std::vector<SqlToken>;

// Words that follow a table reference instead of an alias.
bool EndsTableReference(const SqlToken& t) {
    return IsAnyWord(t, {"ON", "WHERE", "INNER", "LEFT", "RIGHT", "FULL", "CROSS", "OUTER", "JOIN", "GROUP",
                         "ORDER", "UNION", "HAVING", "WITH"}) ||
           t.IsPunct(')') || t.IsPunct(',');
}

struct BaseTable {
    std::string table;
    std::string reference; // the alias, or the table's own name
};

// What the names of a statement may stand for: its base tables, the names given to derived
// tables, and every column name a parenthesised SELECT puts out (a derived table's column could
// carry a base column's name and mean something else).
struct StatementNames {
    std::vector<BaseTable> tables;
    std::vector<std::string> derived;
    std::vector<std::string> subqueryOutputs;
    bool subqueryStar = false;
};

// Reads one FROM/JOIN source at `n`; gives the index after it and its alias.
size_t ReadSource(const Tokens& t, size_t n, StatementNames& names) {
    bool derived = t[n].IsPunct('(');
    std::string table = derived ? "" : t[n].Name();
    std::string reference = t[n].Name();
    size_t after = derived ? MatchingParen(t, n) + 1 : n + 1;
    size_t a = NextSolid(t, after);
    if (a < t.size() && t[a].IsWord("AS")) a = NextSolid(t, a + 1);
    if (a < t.size() && t[a].IsName() && !EndsTableReference(t[a])) {
        reference = t[a].Name();
        after = a + 1;
    }
    if (derived)
        names.derived.push_back(FoldedAscii(reference));
    else
        names.tables.push_back({table, FoldedAscii(reference)});
    return after;
}

void ReadSubqueryOutputs(const Tokens& t, size_t select, size_t close, StatementNames& names) {
    size_t end = close;
    int depth = 0;
    for (size_t i = select + 1; i < close; ++i) {
        if (t[i].IsPunct('('))
            ++depth;
        else if (t[i].IsPunct(')'))
            --depth;
        else if (depth == 0 && t[i].IsWord("FROM")) {
            end = i;
            break;
        }
    }
    for (auto [b, e] : SplitAtCommas(t, select + 1, end)) {
        auto s = Solids(t, b, e);
        if (s.empty()) continue;
        const SqlToken& last = t[s.back()];
        if (last.IsPunct('*'))
            names.subqueryStar = true;
        else if (last.IsName())
            names.subqueryOutputs.push_back(FoldedAscii(last.Name()));
    }
}

StatementNames ReadNames(const Tokens& t) {
    StatementNames names;
    for (size_t i = 0; i < t.size(); ++i) {
        if (t[i].IsPunct('(')) {
            size_t s = NextSolid(t, i + 1);
            if (s < t.size() && t[s].IsWord("SELECT")) ReadSubqueryOutputs(t, s, MatchingParen(t, i), names);
            continue;
        }
        if (!t[i].IsWord("FROM") && !t[i].IsWord("JOIN")) continue;
        bool list = t[i].IsWord("FROM");
        size_t n = NextSolid(t, i + 1);
        while (n < t.size() && (t[n].IsName() || t[n].IsPunct('('))) {
            size_t after = ReadSource(t, n, names);
            size_t comma = NextSolid(t, after);
            if (!list || comma >= t.size() || !t[comma].IsPunct(',')) break;
            n = NextSolid(t, comma + 1);
        }
    }
    return names;
}

bool Contains(const std::vector<std::string>& folded, const std::string& name) {
    for (const auto& f : folded)
        if (f == FoldedAscii(name)) return true;
    return false;
}

bool HasColumn(const ColumnLookup& columns, const std::string& table, const std::string& column) {
    for (const auto& c : columns(table))
        if (EqualsIgnoreAsciiCase(c, column)) return true;
    return false;
}

// The base tables the column reference can belong to; empty when it may be anything else.
std::vector<std::string> TablesOf(const StatementNames& names, const ColumnLookup& columns,
                                  const std::optional<std::string>& qualifier, const std::string& column) {
    std::vector<std::string> found;
    if (qualifier) {
        if (Contains(names.derived, *qualifier)) return {};
        for (const auto& base : names.tables)
            if (base.reference == FoldedAscii(*qualifier) && HasColumn(columns, base.table, column)) {
                found.push_back(base.table);
                break;
            }
        return found;
    }
    if (names.subqueryStar || Contains(names.subqueryOutputs, column)) return {};
    for (const auto& base : names.tables)
        if (HasColumn(columns, base.table, column)) found.push_back(base.table);
    return found;
}

// The length N of char(N) when it is 4, 6 or 8: the year, the month or the day.
std::optional<size_t> DigitsOf(const Tokens& t, size_t b, size_t e) {
    auto s = Solids(t, b, e);
    if (s.size() != 4 || !IsAnyWord(t[s[0]], {"char", "varchar", "nchar", "nvarchar"}) ||
        !t[s[1]].IsPunct('(') || t[s[2]].kind != SqlTokenKind::Number || !t[s[3]].IsPunct(')'))
        return std::nullopt;
    const std::string& n = t[s[2]].text;
    if (n == "4" || n == "6" || n == "8") return static_cast<size_t>(n[0] - '0');
    return std::nullopt;
}

// The digits of a literal '…' of exactly `length` digits.
std::optional<std::string> DigitLiteral(const SqlToken& t, size_t length) {
    if (t.kind != SqlTokenKind::String || t.text.size() != length + 2 || t.text.front() != '\'' ||
        t.text.back() != '\'')
        return std::nullopt;
    std::string digits = t.text.substr(1, length);
    for (char c : digits)
        if (c < '0' || c > '9') return std::nullopt;
    return digits;
}

// The next digit string of the same length ("202401" → "202402", "202409" → "202410");
// none after all nines.
std::optional<std::string> NextDigits(std::string d) {
    for (size_t i = d.size(); i-- > 0;) {
        if (d[i] != '9') {
            ++d[i];
            return d;
        }
        d[i] = '0';
    }
    return std::nullopt;
}

// The ISO text that starts where the digits do: 20240115 → 2024-01-15, 202401 → 2024-01-,
// 2024 → 2024-. The trailing '-' is there in every ISO date, and keeps the bound from reading
// as a number against the column's numeric affinity.
std::string IsoBound(const std::string& d) {
    std::string out = d.substr(0, 4) + "-";
    if (d.size() >= 6) out += d.substr(4, 2) + "-";
    if (d.size() == 8) out = out.substr(0, 8) + d.substr(6, 2);
    return "'" + out + "'";
}

struct Comparison {
    size_t end = 0;  // last token of the comparison
    std::string op;  // = < > <= >= BETWEEN
    std::string low; // the digits compared with (the first bound of Between)
    std::string high;
};

std::optional<Comparison> ReadComparison(const Tokens& t, size_t close, size_t digits) {
    size_t o = NextSolid(t, close + 1);
    if (o >= t.size()) return std::nullopt;
    Comparison c;
    size_t lit = NextSolid(t, o + 1);
    if (lit >= t.size()) return std::nullopt;
    auto low = DigitLiteral(t[lit], digits);
    if (!low) return std::nullopt;
    c.low = *low;
    c.end = lit;
    if (t[o].IsWord("BETWEEN")) {
        c.op = "BETWEEN";
        size_t a = NextSolid(t, lit + 1);
        size_t h = a < t.size() ? NextSolid(t, a + 1) : t.size();
        if (h >= t.size() || !t[a].IsWord("AND")) return std::nullopt;
        auto high = DigitLiteral(t[h], digits);
        if (!high) return std::nullopt;
        c.high = *high;
        c.end = h;
    } else if (t[o].kind == SqlTokenKind::Punct &&
               (t[o].text == "=" || t[o].text == "<" || t[o].text == ">" || t[o].text == "<=" ||
                t[o].text == ">=")) {
        c.op = t[o].text;
    } else {
        return std::nullopt;
    }
    // Nothing may bind to the literal more tightly than the comparison ('202401' + 'x').
    size_t next = NextSolid(t, c.end + 1);
    if (next < t.size() && !t[next].IsPunct(')') &&
        !IsAnyWord(t[next],
                   {"AND", "OR", "GROUP", "ORDER", "UNION", "HAVING", "WHEN", "THEN", "ELSE", "END"}))
        return std::nullopt;
    return c;
}

// The range on the column that equals the comparison, for ISO date text; none where the bound
// would lie past the last digit string.
std::optional<std::string> RangeText(const std::string& column, const Comparison& c) {
    auto below = [&](const std::string& digits) -> std::optional<std::string> { // column < next(digits)
        auto next = NextDigits(digits);
        if (!next) return std::nullopt;
        return column + " < " + IsoBound(*next);
    };
    const std::string atLeast = column + " >= " + IsoBound(c.low);
    std::optional<std::string> text;
    if (c.op == "=") {
        if (auto b = below(c.low)) text = atLeast + " And " + *b;
    } else if (c.op == "<") {
        text = column + " < " + IsoBound(c.low);
    } else if (c.op == ">=") {
        text = atLeast;
    } else if (c.op == ">") {
        if (auto next = NextDigits(c.low)) text = column + " >= " + IsoBound(*next);
    } else if (c.op == "<=") {
        text = below(c.low);
    } else if (auto b = below(c.high)) { // BETWEEN
        text = atLeast + " And " + *b;
    }
    if (!text) return std::nullopt;
    return "(" + *text + ")";
}

// Where a comparison may start: a condition of its own, not part of a larger expression.
bool StartsCondition(const Tokens& t, size_t at) {
    size_t p = at;
    while (p > 0 && t[p - 1].IsTrivia()) --p;
    if (p == 0) return true;
    const SqlToken& prev = t[p - 1];
    return prev.IsPunct('(') || IsAnyWord(prev, {"AND", "OR", "WHERE", "ON", "NOT", "WHEN", "HAVING"});
}

} // namespace

void RewriteDateComparisons(Tokens& t, const ColumnLookup& columns, const IsoDateCheck& isoDates) {
    if (!columns || !isoDates) return;
    std::optional<StatementNames> names;
    for (size_t i = 0; i < t.size(); ++i) {
        if (!t[i].IsWord("CONVERT") || !StartsCondition(t, i)) continue;
        size_t open = NextSolid(t, i + 1);
        if (open >= t.size() || !t[open].IsPunct('(')) continue;
        size_t close = MatchingParen(t, open);
        if (close >= t.size()) continue;
        auto args = SplitAtCommas(t, open + 1, close);
        if (args.size() != 3) continue;
        auto digits = DigitsOf(t, args[0].first, args[0].second);
        auto style = Solids(t, args[2].first, args[2].second);
        auto ref = Solids(t, args[1].first, args[1].second);
        if (!digits || style.size() != 1 || t[style[0]].text != "112") continue;
        std::optional<std::string> qualifier;
        if (ref.size() == 3 && t[ref[0]].IsName() && t[ref[1]].IsPunct('.') && t[ref[2]].IsName())
            qualifier = t[ref[0]].Name();
        else if (ref.size() != 1 || !t[ref[0]].IsName())
            continue;
        auto comparison = ReadComparison(t, close, *digits);
        if (!comparison) continue;

        if (!names) names = ReadNames(t);
        const std::string column = t[ref.back()].Name();
        auto tables = TablesOf(*names, columns, qualifier, column);
        bool iso = !tables.empty();
        for (const auto& table : tables) iso = iso && isoDates(table, column);
        if (!iso) continue;
        std::string columnText;
        for (size_t r : ref) columnText += t[r].text;
        auto range = RangeText(columnText, *comparison);
        if (!range) continue;
        t[i] = SqlToken{SqlTokenKind::Word, *range};
        t.erase(t.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                t.begin() + static_cast<std::ptrdiff_t>(comparison->end) + 1);
    }
}

} // namespace quillon
