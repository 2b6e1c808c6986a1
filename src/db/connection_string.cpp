#include "db/connection_string.h"

#include "db/db_error.h"
#include "db/text_fold.h"

namespace quillon {
namespace {

std::string TrimBlanks(std::string_view s) {
    size_t b = 0, e = s.size();
    while (b < e && (s[b] == ' ' || s[b] == '\t')) ++b;
    while (e > b && (s[e - 1] == ' ' || s[e - 1] == '\t')) --e;
    return std::string(s.substr(b, e - b));
}

} // namespace

ConnectionString ConnectionString::Parse(std::string_view text) {
    ConnectionString result;
    size_t i = 0;
    while (i < text.size()) {
        size_t eq = text.find('=', i);
        size_t semi = text.find(';', i);
        if (eq == std::string_view::npos || (semi != std::string_view::npos && semi < eq)) {
            // A stray piece without '=': blanks alone are harmless, anything else is malformed.
            std::string piece =
                TrimBlanks(text.substr(i, semi == std::string_view::npos ? text.npos : semi - i));
            if (!piece.empty()) throw DbError(kAdoErrGeneric, "连接字符串格式不正确: " + piece);
            if (semi == std::string_view::npos) break;
            i = semi + 1;
            continue;
        }
        std::string key = TrimBlanks(text.substr(i, eq - i));
        size_t v = eq + 1;
        while (v < text.size() && (text[v] == ' ' || text[v] == '\t')) ++v;
        std::string value;
        if (v < text.size() && (text[v] == '\'' || text[v] == '"')) {
            // A quoted value runs to the matching quote; a doubled quote stands for one.
            char q = text[v++];
            for (;;) {
                if (v >= text.size()) throw DbError(kAdoErrGeneric, "连接字符串格式不正确: " + key);
                if (text[v] == q) {
                    if (v + 1 < text.size() && text[v + 1] == q) {
                        value += q;
                        v += 2;
                        continue;
                    }
                    ++v;
                    break;
                }
                value += text[v++];
            }
            while (v < text.size() && (text[v] == ' ' || text[v] == '\t')) ++v;
            if (v < text.size() && text[v] != ';')
                throw DbError(kAdoErrGeneric, "连接字符串格式不正确: " + key);
            i = v + 1;
        } else {
            size_t end = text.find(';', v);
            value = TrimBlanks(text.substr(v, end == std::string_view::npos ? text.npos : end - v));
            i = end == std::string_view::npos ? text.size() : end + 1;
        }
        if (key.empty()) throw DbError(kAdoErrGeneric, "连接字符串格式不正确: =" + value);
        result.pairs_.emplace_back(std::move(key), std::move(value));
    }
    return result;
}

std::optional<std::string> ConnectionString::Get(std::string_view key) const {
    // The last occurrence wins, as with ADO.
    for (auto it = pairs_.rbegin(); it != pairs_.rend(); ++it)
        if (EqualsIgnoreAsciiCase(it->first, key)) return it->second;
    return std::nullopt;
}

std::string ConnectionString::GetOr(std::string_view key, std::string fallback) const {
    auto v = Get(key);
    return v ? *v : std::move(fallback);
}

} // namespace quillon
