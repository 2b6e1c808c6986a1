// Statement texts keep their literal form; only the named placeholders change.
#include <gtest/gtest.h>

#include <stdexcept>

#include "workbench/statement_text.h"

namespace quillon {
namespace {

TEST(StatementText, FillsEveryPlaceholderAndKeepsBlanksAsWritten) {
    EXPECT_EQ(FillStatement("Select 1 From T  Where a ='{dept}' And b In ({all}) And c ='{dept}'",
                            {{"dept", "0101"}, {"all", "'01','02'"}}),
              "Select 1 From T  Where a ='0101' And b In ('01','02') And c ='0101'");
}

TEST(StatementText, ValuesAreSplicedBareAndNotReadAgain) {
    // A value may itself hold braces (a nested statement, a name from the data).
    EXPECT_EQ(FillStatement("({Q1}) A1", {{"Q1", "Select '{month}'"}}), "(Select '{month}') A1");
    EXPECT_EQ(FillStatement("In ({all})", {{"all", ""}}), "In ()");
}

TEST(StatementText, AMissingOrUnusedValueIsAMistakeOfTheProgram) {
    struct Case {
        const char* why;
        const char* text;
        bool giveMonth;
    };
    const Case cases[] = {
        {"placeholder without a value", "Where m ='{month}' And d ='{dept}'", true},
        {"value no placeholder asks for", "Where d ='{dept}'", true},
        {"unclosed placeholder", "Where d ='{dept'", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        if (c.giveMonth)
            EXPECT_THROW(FillStatement(c.text, {{"month", "202403"}}), std::logic_error);
        else
            EXPECT_THROW(FillStatement(c.text, {{"dept", "01"}}), std::logic_error);
    }
}

} // namespace
} // namespace quillon
