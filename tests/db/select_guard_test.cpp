#include "db/select_guard.h"

#include <gtest/gtest.h>

#include "db_test_support.h"

namespace quillon {
namespace {

TEST(SelectGuard, LetsOnlyOneSelectThrough) {
    struct Case {
        const char* why;
        const char* sql;
        bool passes;
    } cases[] = {
        {"plain select", "Select * From 票据类型", true},
        {"leading blanks and comments", "  \n-- note\n/* block */ select 1", true},
        {"one trailing semicolon", "select 1 ;  ", true},
        {"semicolon inside a literal", "select 'a;delete from x' as t", true},
        {"semicolon inside a comment", "select 1 /* ; drop table x */", true},
        {"a name that holds select's words", "select [into] from t", true},
        {"delete", "DELETE FROM 票据", false},
        {"update behind a comment", "/* select */ update 票据 set 金额=0", false},
        {"second statement", "select 1; drop table 票据", false},
        {"second statement after a literal", "select ';'; insert into t values(1)", false},
        {"select into writes a table", "select * into 备份 from 票据", false},
        {"empty text", "   ", false},
        {"with clause", "with x as (select 1) select * from x", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(testing::ErrorOf([&] { EnsureSingleSelect(c.sql); }).Number,
                  c.passes ? 0 : kAdoErrBadStatement);
    }
}

} // namespace
} // namespace quillon
