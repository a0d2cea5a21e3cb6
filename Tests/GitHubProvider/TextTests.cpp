#include "GitHubProvider/Text.h"

#include <gmock/gmock.h>

namespace {

using namespace GitHubProvider;

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

}  // namespace
