// Text helpers on UTF-8 text with Chinese characters: byte positions, whole characters.
#include <gtest/gtest.h>

#include "base/vb_text.h"

namespace quillon {
namespace {

TEST(VbText, ReplaceEveryOccurrence) {
    struct Case {
        const char* why;
        const char* text;
        const char* find;
        const char* with;
        const char* result;
    };
    const Case cases[] = {
        {"Chinese word twice", "物业费【2024】物业费", "物业费", "WYF", "WYF【2024】WYF"},
        {"replaced text is not searched again", "aaa", "aa", "a", "aa"},
        {"replacement holds the search text", "费", "费", "费用费", "费用费"},
        {"empty search leaves the text", "abc", "", "x", "abc"},
        {"blank removed between characters", "收款 人 ", " ", "", "收款人"},
        {"quote doubled for a statement", "O'Neil", "'", "''", "O''Neil"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Replace(c.text, c.find, c.with), c.result);
    }
}

TEST(VbText, InStrGivesOneBasedBytePositions) {
    struct Case {
        const char* why;
        const char* text;
        const char* find;
        std::size_t start;
        std::size_t position;
    };
    const Case cases[] = {
        {"after three 3-byte characters", "停车费【A区】", "【", 1, 10},
        {"blank after a code", "0101 一区", " ", 1, 5},
        {"absent", "abc", "x", 1, 0},
        {"empty text", "", "a", 1, 0},
        {"empty search from a start", "abc", "", 2, 2},
        {"search from a start", "a,b,c", ",", 3, 4},
        {"start beyond the text", "abc", "c", 4, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(InStr(c.text, c.find, c.start), c.position);
    }
}

TEST(VbText, TrimRemovesBlanksOnly) {
    struct Case {
        const char* why;
        const char* text;
        const char* trim;
        const char* ltrim;
        const char* rtrim;
    };
    const Case cases[] = {
        {"blanks both sides", "  总部  ", "总部", "总部  ", "  总部"},
        {"tab is kept", "\t总部 ", "\t总部", "\t总部 ", "\t总部"},
        {"blanks only", "   ", "", "", ""},
        {"inner blank kept", " 合  计 ", "合  计", "合  计 ", " 合  计"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Trim(c.text), c.trim);
        EXPECT_EQ(LTrim(c.text), c.ltrim);
        EXPECT_EQ(RTrim(c.text), c.rtrim);
    }
}

// Join is Split's inverse: every row joined back gives its text again.
TEST(VbText, SplitKeepsEmptyFieldsAndJoinPutsThemBack) {
    using Fields = std::vector<std::string>;
    struct Case {
        const char* why;
        const char* text;
        const char* sep;
        Fields fields;
    };
    const Case cases[] = {
        {"closing comma leaves an empty last field", "202401,202402,", ",", {"202401", "202402", ""}},
        {"empty field in the middle", "a,,b", ",", {"a", "", "b"}},
        {"separator alone", ",", ",", {"", ""}},
        {"no separator", "202401", ",", {"202401"}},
        {"empty text has no fields", "", ",", {}},
        {"empty separator gives the whole text", "abc", "", {"abc"}},
        {"Chinese separator", "一区、二区", "、", {"一区", "二区"}},
        {"separator of two characters", "a--b--", "--", {"a", "b", ""}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(Split(c.text, c.sep), c.fields);
        EXPECT_EQ(Join(c.fields, c.sep), c.text);
    }
}

} // namespace
} // namespace quillon
