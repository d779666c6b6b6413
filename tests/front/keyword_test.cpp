#include "front/input/keyword.h"

#include <limits>
#include <string>

#include <gtest/gtest.h>

namespace {

TEST(Keyword, MatchesLinesThatBeginWithItAndItsOwnBeginnings) {
    struct Case {
        const char* keyword;
        const char* text;
        bool matches;
    };
    constexpr Case cases[] = {
        {"post", "post", true},   {"post", "poSTer now", true}, {"post", "p", true},
        {"post", "  post", true}, {"post", "posh", false},      {"post", "nopost", false},
        {"otime", "otim", true},  {"otime", "otim 100", false}, {"q", "queen", true},
        {"st", "stop", true},     {"uci", "ucinewgame", true},  {"post", "", false},
        {"post", "   ", false},   {"", "post", false},          {"time", "ti me", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.keyword) + " / " + c.text);
        EXPECT_EQ(KeywordMatches(c.keyword, c.text), c.matches);
    }
}

TEST(Keyword, SettingsKeysMustStandWhole) {
    EXPECT_TRUE(BeginsWithKeyword("Learning", "learning = on"));
    EXPECT_TRUE(BeginsWithKeyword("Learning", "  LearningMore"));
    EXPECT_FALSE(BeginsWithKeyword("Learning", "Learn = on"));
}

std::string Joined(const std::string& text, const std::string& separators) {
    std::string joined;
    for (const Token& token : Tokenize(text, separators))
        joined += "[" + token.text + "@" + std::to_string(token.offset) + "]";
    return joined;
}

TEST(Tokenize, TreatsRunsOfSeparatorsAsOne) {
    EXPECT_EQ(Joined("level 40 5:30 0", " :"), "[level@0][40@6][5@9][30@11][0@14]");
    EXPECT_EQ(Joined("  go   depth 3", " "), "[go@2][depth@7][3@13]");
    EXPECT_EQ(Joined("sd ", " "), "[sd@0][@3]");
    EXPECT_EQ(Joined("   ", " "), "");
}

TEST(ReadNumber, GivesADefinedResultForEveryText) {
    struct Case {
        const char* text;
        int32_t number;
    };
    constexpr int32_t most = std::numeric_limits<int32_t>::max();
    constexpr int32_t least = std::numeric_limits<int32_t>::min();
    constexpr Case cases[] = {
        {"12", 12},
        {" \t-7x", -7},
        {"x5", 0},
        {"-", 0},
        {"2147483648", most},
        {"-2147483648", least},
        {"-99999999999999999999", least},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        EXPECT_EQ(ReadNumber(c.text), c.number);
    }
}

} // namespace
