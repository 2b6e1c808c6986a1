#include "db/sqlite_messages.h"

namespace quillon {
namespace {

// The part of `message` after `prefix` when it starts with it.
bool After(std::string_view message, std::string_view prefix, std::string_view& rest) {
    if (message.substr(0, prefix.size()) != prefix) return false;
    rest = message.substr(prefix.size());
    return true;
}

// X of "\"X\"…": the text between the first two double quotes; the rest when unquoted.
std::string_view Quoted(std::string_view text) {
    if (text.size() < 2 || text.front() != '"') return text;
    const size_t close = text.rfind('"');
    return close == 0 ? text.substr(1) : text.substr(1, close - 1);
}

} // namespace

std::string SqlServerWording(std::string_view m) {
    std::string_view rest;
    if (After(m, "no such table: ", rest)) return "对象名 '" + std::string(rest) + "' 无效。";
    if (After(m, "no such column: ", rest)) return "列名 '" + std::string(rest) + "' 无效。";
    if (After(m, "ambiguous column name: ", rest)) return "列名 '" + std::string(rest) + "' 不明确。";
    if (After(m, "near ", rest) && rest.ends_with(": syntax error")) {
        rest.remove_suffix(std::string_view(": syntax error").size());
        return "'" + std::string(Quoted(rest)) + "' 附近有语法错误。";
    }
    if (After(m, "unrecognized token: ", rest)) {
        const std::string_view token = Quoted(rest);
        if (!token.empty() && token.front() == '\'')
            return "字符串 '" + std::string(token.substr(1)) + "' 后的引号不完整。";
        return "'" + std::string(token) + "' 附近有语法错误。";
    }
    if (m == "incomplete input") return "语句意外结束。";
    if (m == "database disk image is malformed") return "数据库文件已损坏。";
    if (m == "file is not a database") return "文件不是数据库。";
    if (m == "unable to open database file") return "无法打开数据库文件。";
    if (m == "attempt to write a readonly database") return "数据库只能读取，不能写入。";
    return std::string(m);
}

} // namespace quillon
