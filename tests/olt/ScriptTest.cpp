#include "app/Script.h"

#include <gtest/gtest.h>
#include <sstream>

#include "model/Errors.h"

namespace olt {

namespace {

using Words = std::vector<std::string>;

TEST(SplitWords, BlanksPartWords)
{
    EXPECT_EQ(splitWords("  get\tOnuG   0 \r"), (Words{"get", "OnuG", "0"}));
    EXPECT_EQ(splitWords(""), Words{});
}

TEST(SplitWords, QuotesKeepBlanksAndMayStandInsideAWord)
{
    EXPECT_EQ(splitWords(R"(set 'a b' x="c d"e)"), (Words{"set", "a b", "x=c de"}));
    EXPECT_EQ(splitWords(R"("" '')"), (Words{"", ""}));
    EXPECT_EQ(splitWords(R"("a'b" 'c"d')"), (Words{"a'b", "c\"d"}));
}

TEST(SplitWords, BackslashTakesTheNextCharacter)
{
    EXPECT_EQ(splitWords(R"(a\ b "c\"d" 'e\f' \#)"), (Words{"a b", "c\"d", "e\\f", "#"}));
}

TEST(SplitWords, CommentsBeginAWord)
{
    EXPECT_EQ(splitWords("# all"), Words{});
    EXPECT_EQ(splitWords("get#1 0 # rest 'open"), (Words{"get#1", "0"}));
    EXPECT_EQ(splitWords("'#' x"), (Words{"#", "x"}));
}

TEST(SplitWords, OpenEndsAreRefused)
{
    EXPECT_THROW(static_cast<void>(splitWords("a 'b")), UsageError);
    EXPECT_THROW(static_cast<void>(splitWords("a \"b\\\"")), UsageError);
    EXPECT_THROW(static_cast<void>(splitWords("a\\")), UsageError);
}

TEST(ReadScript, NumbersLinesAndSkipsEmptyOnes)
{
    std::istringstream input("# head\n\nmib-reset\r\n  get OnuG 0  # why\n");
    const auto lines = readScript(input, "file");
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0].number, 3U);
    EXPECT_EQ(lines[0].words, Words{"mib-reset"});
    EXPECT_EQ(lines[1].number, 4U);
    EXPECT_EQ(lines[1].text, "get OnuG 0  # why");
}

TEST(ReadScript, OverlongLinesAreRefused)
{
    std::istringstream input("get\n" + std::string(100000, 'x'));
    try {
        static_cast<void>(readScript(input, "file"));
        FAIL() << "accepted";
    } catch (const UsageError& error) {
        EXPECT_EQ(std::string(error.what()).find("file:2: the line has more than"), 0U);
    }
}

}  // namespace

}  // namespace olt
