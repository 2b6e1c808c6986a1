#include "db/select_guard.h"

#include "db/db_error.h"
#include "db/sql_tokens.h"

namespace quillon {
namespace {

[[noreturn]] void Refuse(const std::string& why) {
    throw DbError(kAdoErrBadStatement, "本程序只读取数据库，语句被拒绝: " + why);
}

} // namespace

void EnsureSingleSelect(std::string_view sql) {
    auto tokens = TokenizeSql(sql);
    size_t first = NextSolid(tokens, 0);
    if (first == tokens.size()) Refuse("空语句");
    if (!tokens[first].IsWord("SELECT")) Refuse("不是 SELECT 语句");
    for (size_t i = first; i < tokens.size(); ++i) {
        // SELECT … INTO creates a table on SQL Server.
        if (tokens[i].IsWord("INTO")) Refuse("SELECT … INTO 会写入数据库");
        if (tokens[i].IsPunct(';')) {
            for (size_t k = i + 1; k < tokens.size(); ++k)
                if (!tokens[k].IsTrivia() && !tokens[k].IsPunct(';')) Refuse("分号后还有第二条语句");
            break;
        }
    }
}

} // namespace quillon
