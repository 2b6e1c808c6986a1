#include "db/connection_string.h"

#include <gtest/gtest.h>

#include "db/db_error.h"

namespace quillon {
namespace {

TEST(ConnectionString, ReadsTheStartupTextAsAdoDoes) {
    auto cs =
        ConnectionString::Parse("Provider=SQLOLEDB.1;Password=pw;Persist Security Info=False;User ID=sa;"
                                "Initial Catalog='物业收费';Data Source='srv01'");
    struct Case {
        const char* key;
        const char* value;
    } cases[] = {
        {"Provider", "SQLOLEDB.1"},         {"password", "pw"},
        {"PERSIST SECURITY INFO", "False"}, {"User ID", "sa"},
        {"Initial Catalog", "物业收费"},    {"Data Source", "srv01"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.key);
        EXPECT_EQ(cs.Get(c.key).value_or("<absent>"), c.value);
    }
    EXPECT_FALSE(cs.Get("Server").has_value());
}

TEST(ConnectionString, QuotesBlanksAndRepeats) {
    struct Case {
        const char* why;
        const char* text;
        const char* key;
        const char* value;
    } cases[] = {
        {"double quotes", "Data Source=\"a;b\"", "Data Source", "a;b"},
        {"doubled quote inside quotes", "Initial Catalog='O''Brien'", "Initial Catalog", "O'Brien"},
        {"blanks around a bare value go", "UID =  sa  ;", "uid", "sa"},
        {"empty value", "Password=;User ID=x", "Password", ""},
        {"the last of two wins", "UID=a;UID=b", "UID", "b"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(ConnectionString::Parse(c.text).Get(c.key).value_or("<absent>"), c.value);
    }
}

TEST(ConnectionString, MalformedTextFailsLikeAFailedOpen) {
    // A password holding a semicolon splits the text: "b" stands alone without '='.
    for (const char* text : {"Password=a;b;User ID=x", "Initial Catalog='unterminated", "=x"}) {
        SCOPED_TRACE(text);
        try {
            ConnectionString::Parse(text);
            ADD_FAILURE() << "parsed";
        } catch (const DbError& e) {
            EXPECT_EQ(e.Number, kAdoErrGeneric);
        }
    }
}

} // namespace
} // namespace quillon
