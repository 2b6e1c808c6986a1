#include "db/shared_derived_tables.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string>

namespace quillon {
namespace {

using Tokens = std::vector<SqlToken>;
using Solid = std::vector<size_t>; // token indexes, blanks and comments left out

// Words of an expression that name no column.
bool IsExpressionWord(const SqlToken& t) {
    return IsAnyWord(t, {"CASE", "WHEN", "THEN", "ELSE", "END", "IS", "NOT", "NULL", "AND", "OR", "IN",
                         "LIKE", "DISTINCT"});
}

std::string Joined(const Tokens& t, const Solid& s, size_t from, size_t to) {
    std::string out;
    for (size_t k = from; k < to; ++k) {
        if (k > from) out += ' ';
        out += t[s[k]].text;
    }
    return out;
}

// The column name that starts at solid k, "C" or "T.C", with k left on its last token; nullopt
// when a point follows without a name after it.
std::optional<std::string> ReadColumnName(const Tokens& t, const Solid& s, size_t& k, size_t to) {
    std::string name = t[s[k]].text;
    if (k + 1 >= to || !t[s[k + 1]].IsPunct('.')) return name;
    if (k + 2 >= to || !t[s[k + 2]].IsName()) return std::nullopt;
    k += 2;
    return name + "." + t[s[k]].text;
}

// Column references of a select list or GROUP BY, each named by its text ("T.C" or "C"), and
// the list written again with each reference given by `rename`.
struct Rewritten {
    std::vector<std::string> refs;
    std::string text;
};

// One expression (a select item without its alias, or a GROUP BY term); nullopt where a name
// could be anything but a column of the FROM (an alias without AS, a star, a subquery).
std::optional<Rewritten> RewriteExpression(const Tokens& t, const Solid& s, size_t from, size_t to,
                                           const std::map<std::string, std::string>* rename) {
    Rewritten out;
    auto emit = [&out](const std::string& text) {
        if (!out.text.empty()) out.text += ' ';
        out.text += text;
    };
    for (size_t k = from; k < to; ++k) {
        const SqlToken& tok = t[s[k]];
        const SqlToken* prev = k > from ? &t[s[k - 1]] : nullptr;
        if (tok.IsWord("SELECT") || tok.IsWord("AS")) return std::nullopt;
        if (tok.IsPunct('*') && (!prev || prev->IsPunct(','))) return std::nullopt;
        if (tok.IsPunct('.')) return std::nullopt; // only inside a T.C, read below
        if (!tok.IsName() || IsExpressionWord(tok) || (k + 1 < to && t[s[k + 1]].IsPunct('('))) {
            emit(tok.text);
            continue;
        }
        // A name right after a value would be an alias without AS.
        if (prev &&
            (prev->IsPunct(')') || prev->IsWord("END") || (prev->IsName() && !IsExpressionWord(*prev)) ||
             prev->kind == SqlTokenKind::String || prev->kind == SqlTokenKind::Number))
            return std::nullopt;
        const auto ref = ReadColumnName(t, s, k, to);
        if (!ref) return std::nullopt;
        out.refs.push_back(*ref);
        emit(rename ? rename->at(*ref) : *ref);
    }
    return out;
}

// `ref In ('a', 'b', …)`: the reference's text and the literals, or nullopt.
struct InList {
    std::string ref;
    std::vector<std::string> literals;
};

std::optional<InList> ReadInList(const Tokens& t, const Solid& s, size_t from, size_t to) {
    InList in;
    size_t k = from;
    if (k >= to || !t[s[k]].IsName() || IsExpressionWord(t[s[k]])) return std::nullopt;
    const auto ref = ReadColumnName(t, s, k, to);
    if (!ref) return std::nullopt;
    in.ref = *ref;
    ++k;
    if (k + 1 >= to || !t[s[k]].IsWord("IN") || !t[s[k + 1]].IsPunct('(') || !t[s[to - 1]].IsPunct(')'))
        return std::nullopt;
    for (k += 2; k < to - 1; k += 2) {
        const SqlToken& literal = t[s[k]];
        if (literal.kind != SqlTokenKind::String && literal.kind != SqlTokenKind::Number) return std::nullopt;
        in.literals.push_back(literal.text);
        const bool last = k + 1 == to - 1;
        if (!last && !t[s[k + 1]].IsPunct(',')) return std::nullopt;
    }
    if (in.literals.empty()) return std::nullopt;
    return in;
}

// A derived table `Join ( Select list From F Where c1 And c2 … Group by G )`.
struct Derived {
    size_t open = 0;
    size_t close = 0;
    Solid s;
    std::vector<std::pair<size_t, size_t>> items;     // select items, [from, to) in s
    std::vector<std::pair<size_t, size_t>> conjuncts; // of the WHERE
    size_t from = 0, where = 0, group = 0;            // in s: the words From, Where, Group
};

// Splits solids [from, to) at commas outside parentheses.
std::vector<std::pair<size_t, size_t>> SplitSolids(const Tokens& t, const Solid& s, size_t from, size_t to) {
    std::vector<std::pair<size_t, size_t>> parts;
    int depth = 0;
    size_t start = from;
    for (size_t k = from; k < to; ++k) {
        if (t[s[k]].IsPunct('(')) ++depth;
        if (t[s[k]].IsPunct(')')) --depth;
        if (depth == 0 && t[s[k]].IsPunct(',')) {
            parts.push_back({start, k});
            start = k + 1;
        }
    }
    parts.push_back({start, to});
    return parts;
}

std::optional<Derived> ReadDerived(const Tokens& t, size_t open) {
    Derived d;
    d.open = open;
    d.close = MatchingParen(t, open);
    if (d.close >= t.size()) return std::nullopt;
    d.s = Solids(t, open + 1, d.close);
    const Solid& s = d.s;
    if (s.empty() || !t[s[0]].IsWord("SELECT")) return std::nullopt;
    int depth = 0;
    size_t conjunctStart = 0;
    for (size_t k = 1; k < s.size(); ++k) {
        const SqlToken& tok = t[s[k]];
        if (tok.IsPunct('(')) ++depth;
        if (tok.IsPunct(')')) --depth;
        if (depth != 0 || tok.kind != SqlTokenKind::Word) continue;
        // Clauses the family form does not carry, and (in the WHERE) words that would make a
        // split at AND no longer a list of conditions that all must hold.
        if (IsAnyWord(tok, {"SELECT", "HAVING", "ORDER", "UNION", "EXCEPT", "INTERSECT", "LIMIT", "OFFSET",
                            "OPTION", "FOR", "INTO", "TOP", "DISTINCT", "ALL", "WITH"}))
            return std::nullopt;
        const bool inWhere = d.where && !d.group;
        if (inWhere && IsAnyWord(tok, {"OR", "BETWEEN"})) return std::nullopt;
        if (tok.IsWord("FROM") && !d.from) {
            d.from = k;
        } else if (tok.IsWord("WHERE") && d.from && !d.where) {
            d.where = k;
            conjunctStart = k + 1;
        } else if (tok.IsWord("GROUP") && inWhere && k + 1 < s.size() && t[s[k + 1]].IsWord("BY")) {
            d.conjuncts.push_back({conjunctStart, k});
            d.group = k;
        } else if (tok.IsWord("AND") && inWhere) {
            d.conjuncts.push_back({conjunctStart, k});
            conjunctStart = k + 1;
        }
    }
    if (!d.from || !d.where || !d.group || d.group + 2 >= s.size()) return std::nullopt;
    for (const auto& [b, e] : d.conjuncts)
        if (b >= e) return std::nullopt;
    d.items = SplitSolids(t, s, 1, d.from);
    return d;
}

// A derived table read as one of a family: which conjunct is the IN list that varies.
struct Member {
    Derived d;
    size_t varying = 0; // index into d.conjuncts
    InList in;
};

// What members of one family share: FROM, the WHERE but for the varying list, GROUP BY.
std::string FamilyKey(const Tokens& t, const Member& m) {
    const Derived& d = m.d;
    std::string key = Joined(t, d.s, d.from, d.where) + '\x1f' + m.in.ref + '\x1f';
    for (size_t c = 0; c < d.conjuncts.size(); ++c)
        key += (c == m.varying ? std::string("?")
                               : Joined(t, d.s, d.conjuncts[c].first, d.conjuncts[c].second)) +
               '\x1f';
    return key + Joined(t, d.s, d.group, d.s.size());
}

// The select items as the member writes them from the shared rows; nullopt when one cannot be.
std::optional<std::string> MemberSelect(const Tokens& t, const Derived& d,
                                        const std::map<std::string, std::string>* rename,
                                        std::vector<std::string>* refs) {
    std::string out;
    for (const auto& [b, e] : d.items) {
        if (b >= e) return std::nullopt;
        // "expression AS alias" keeps its alias; a bare column keeps its name as SQLite gives it.
        size_t exprEnd = e;
        std::string alias;
        if (e - b >= 3 && t[d.s[e - 2]].IsWord("AS") && t[d.s[e - 1]].IsName()) {
            exprEnd = e - 2;
            alias = t[d.s[e - 1]].text;
        }
        const auto expr = RewriteExpression(t, d.s, b, exprEnd, rename);
        if (!expr) return std::nullopt;
        const size_t n = exprEnd - b;
        const bool bareColumn = expr->refs.size() == 1 && (n == 1 || n == 3);
        if (alias.empty() && bareColumn) alias = t[d.s[exprEnd - 1]].text;
        if (alias.empty() && !bareColumn) return std::nullopt; // SQLite would name it by its text
        if (refs) refs->insert(refs->end(), expr->refs.begin(), expr->refs.end());
        if (!out.empty()) out += ", ";
        out += expr->text + " AS " + alias;
    }
    return out;
}

std::optional<std::string> MemberGroupBy(const Tokens& t, const Derived& d,
                                         const std::map<std::string, std::string>* rename,
                                         std::vector<std::string>* refs) {
    std::string out;
    for (const auto& [b, e] : SplitSolids(t, d.s, d.group + 2, d.s.size())) {
        const auto expr = RewriteExpression(t, d.s, b, e, rename);
        if (!expr) return std::nullopt;
        if (refs) refs->insert(refs->end(), expr->refs.begin(), expr->refs.end());
        if (!out.empty()) out += ", ";
        out += expr->text;
    }
    return out;
}

} // namespace

bool ShareDerivedTables(Tokens& t) {
    const size_t first = NextSolid(t, 0);
    if (first >= t.size() || !t[first].IsWord("SELECT")) return false;

    std::vector<Derived> joined;
    for (size_t i = first, prev = t.size(); i < t.size(); i = NextSolid(t, i + 1)) {
        if (t[i].IsPunct('(') && prev < t.size() && t[prev].IsWord("JOIN")) {
            if (auto d = ReadDerived(t, i)) {
                joined.push_back(std::move(*d));
                prev = i = joined.back().close;
                continue;
            }
        }
        prev = i;
    }

    std::map<std::string, std::vector<Member>> families;
    for (const Derived& d : joined)
        for (size_t c = 0; c < d.conjuncts.size(); ++c)
            if (auto in = ReadInList(t, d.s, d.conjuncts[c].first, d.conjuncts[c].second)) {
                Member m{d, c, std::move(*in)};
                const std::string key = FamilyKey(t, m);
                families[key].push_back(std::move(m));
            }
    std::vector<const std::vector<Member>*> largestFirst;
    for (const auto& [key, members] : families) largestFirst.push_back(&members);
    std::stable_sort(largestFirst.begin(), largestFirst.end(),
                     [](const auto* a, const auto* b) { return a->size() > b->size(); });

    struct Replacement {
        size_t open, close;
        std::string body;
    };
    std::vector<Replacement> replacements;
    std::vector<std::string> shared;
    std::vector<size_t> taken; // the derived tables already in a family
    for (const std::vector<Member>* family : largestFirst) {
        std::vector<const Member*> members;
        std::vector<std::string> refs;
        for (const Member& m : *family) {
            if (std::find(taken.begin(), taken.end(), m.d.open) != taken.end()) continue;
            std::vector<std::string> own;
            if (!MemberSelect(t, m.d, nullptr, &own) || !MemberGroupBy(t, m.d, nullptr, &own)) continue;
            members.push_back(&m);
            refs.insert(refs.end(), own.begin(), own.end());
        }
        if (members.size() < 2) continue;
        const Member& lead = *members.front();
        refs.push_back(lead.in.ref);

        const std::string table = "quillon_shared_" + std::to_string(shared.size() + 1);
        std::map<std::string, std::string> rename;
        std::string columns;
        for (const std::string& ref : refs) {
            if (rename.count(ref)) continue;
            const std::string alias = table + "_c" + std::to_string(rename.size() + 1);
            rename.emplace(ref, alias);
            columns += (columns.empty() ? "" : ", ") + ref + " AS " + alias;
        }
        std::vector<std::string> codes;
        for (const Member* m : members)
            for (const std::string& literal : m->in.literals)
                if (std::find(codes.begin(), codes.end(), literal) == codes.end()) codes.push_back(literal);
        auto list = [](const std::vector<std::string>& literals) {
            std::string out;
            for (const std::string& l : literals) out += (out.empty() ? "" : ", ") + l;
            return out;
        };
        std::string where;
        for (size_t c = 0; c < lead.d.conjuncts.size(); ++c) {
            if (c > 0) where += " And ";
            where += c == lead.varying
                         ? lead.in.ref + " In (" + list(codes) + ")"
                         : Joined(t, lead.d.s, lead.d.conjuncts[c].first, lead.d.conjuncts[c].second);
        }
        shared.push_back(table + " AS MATERIALIZED (Select " + columns + " From " +
                         Joined(t, lead.d.s, lead.d.from + 1, lead.d.where) + " Where " + where + ")");
        for (const Member* m : members) {
            replacements.push_back({m->d.open, m->d.close,
                                    "Select " + *MemberSelect(t, m->d, &rename, nullptr) + " From " + table +
                                        " Where " + rename.at(lead.in.ref) + " In (" + list(m->in.literals) +
                                        ") Group by " + *MemberGroupBy(t, m->d, &rename, nullptr)});
            taken.push_back(m->d.open);
        }
    }
    if (shared.empty()) return false;

    std::sort(replacements.begin(), replacements.end(),
              [](const Replacement& a, const Replacement& b) { return a.open > b.open; });
    for (const Replacement& r : replacements) {
        Tokens body = TokenizeSql(r.body);
        t.erase(t.begin() + static_cast<std::ptrdiff_t>(r.open + 1),
                t.begin() + static_cast<std::ptrdiff_t>(r.close));
        t.insert(t.begin() + static_cast<std::ptrdiff_t>(r.open + 1), body.begin(), body.end());
    }
    std::string with = "WITH ";
    for (size_t i = 0; i < shared.size(); ++i) with += (i ? ", " : "") + shared[i];
    Tokens head = TokenizeSql(with + " ");
    t.insert(t.begin() + static_cast<std::ptrdiff_t>(first), head.begin(), head.end());
    return true;
}

} // namespace quillon
