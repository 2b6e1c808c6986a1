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
    // Values are spliced bare and not read again: they may hold braces (a nested statement, a
    // name from the data), or nothing.
    EXPECT_EQ(FillStatement("({Q1}) A1", {{"Q1", "Select '{month}'"}}), "(Select '{month}') A1");
    EXPECT_EQ(FillStatement("In ({all})", {{"all", ""}}), "In ()");
}

TEST(StatementText, AMissingOrUnusedValueIsAMistakeOfTheProgram) {
    EXPECT_THROW(FillStatement("Where m ='{month}' And d ='{dept}'", {{"month", "202403"}}), std::logic_error)
        << "placeholder without a value";
    EXPECT_THROW(FillStatement("Where d ='{dept}'", {{"dept", "01"}, {"month", "202403"}}), std::logic_error)
        << "value no placeholder asks for";
    EXPECT_THROW(FillStatement("Where d ='{dept'", {{"dept", "01"}}), std::logic_error)
        << "unclosed placeholder";
}

} // namespace
} // namespace quillon
