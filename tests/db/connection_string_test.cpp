#include "db/connection_string.h"

#include <gtest/gtest.h>

#include "db_test_support.h"

namespace quillon {
namespace {

using testing::ErrorOf;

TEST(ConnectionString, ReadsTheStartupTextAsAdoDoes) {
    const char* startup = "Provider=SQLOLEDB.1;Password=pw;Persist Security Info=False;User ID=sa;"
                          "Initial Catalog='物业收费';Data Source='srv01'";
    struct Case {
        const char* why;
        const char* text;
        const char* key;
        const char* value;
    } cases[] = {
        {"provider", startup, "Provider", "SQLOLEDB.1"},
        {"keys ignore case", startup, "password", "pw"},
        {"key with blanks, in capitals", startup, "PERSIST SECURITY INFO", "False"},
        {"user", startup, "User ID", "sa"},
        {"quoted Chinese catalogue", startup, "Initial Catalog", "物业收费"},
        {"quoted server", startup, "Data Source", "srv01"},
        {"absent key", startup, "Server", "<absent>"},
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
        EXPECT_EQ(ErrorOf([&] { ConnectionString::Parse(text); }).Number, kAdoErrGeneric);
    }
}

} // namespace
} // namespace quillon
