#include "GitHubProvider/Text.h"

#include <gmock/gmock.h>

namespace {

using namespace GitHub;

TEST(Text, keepsValidUtf8)
{
    EXPECT_EQ(decodeText("héllo 日本 🦀"), "héllo 日本 🦀");
}

TEST(Text, replacesInvalidSequences)
{
    EXPECT_EQ(
        decodeText("a\xFF"
                   "b\xC3"),
        "a\xEF\xBF\xBD"
        "b\xEF\xBF\xBD");
}

TEST(Text, trimsWhiteSpaceAndLineBreaksAtBothEnds)
{
    EXPECT_EQ(trimText(" \t\r\n\u00A0a b\u2028\n"), "a b");
    EXPECT_EQ(trimText(" \n "), "");
    EXPECT_EQ(trimText(""), "");
}

TEST(Text, firstWordEndsAtWhiteSpace)
{
    EXPECT_EQ(firstWord(" \n octo cat"), "octo");
    EXPECT_EQ(firstWord("🦀\u2029x"), "🦀");
    EXPECT_EQ(firstWord(" \t"), std::nullopt);
    EXPECT_EQ(firstWord(""), std::nullopt);
}

TEST(Text, findsAsciiWhateverTheCase)
{
    EXPECT_EQ(endOfAsciiIgnoringCase("My ACCount x", "account "), 11U);
    EXPECT_EQ(endOfAsciiIgnoringCase("account ", "account "), 8U);
    EXPECT_EQ(endOfAsciiIgnoringCase("account", "account "), std::string_view::npos);
    EXPECT_EQ(endOfAsciiIgnoringCase("", "account "), std::string_view::npos);
}

}  // namespace
