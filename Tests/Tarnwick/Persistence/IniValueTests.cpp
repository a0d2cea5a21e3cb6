#include "Tarnwick/Persistence/IniValue.h"

#include "Support/PullRequests.h"

#include <rapidcheck/gtest.h>

namespace {

using namespace Tarnwick::IniValue;
using namespace TestSupport;

TEST(IniValue, writesWhatNeedsNoQuotesAsItIs)
{
    EXPECT_EQ(encodeText("true"), "true");
    EXPECT_EQ(encodeText("/home/octo/Проекты 2"), "/home/octo/Проекты 2");
    EXPECT_EQ(encodeList({"Changes Requested", "None"}), "Changes Requested, None");
}

TEST(IniValue, readsKeysBackAndNoOthers)
{
    const std::string key = "lastSeen.github|github.com|octo/тест|12";
    EXPECT_EQ(decodeKey(encodeKey(key)), key);
    EXPECT_EQ(decodeKey("a b"), std::nullopt);
    EXPECT_EQ(decodeKey("a%zz"), std::nullopt);
    EXPECT_EQ(decodeKey("a%7c"), std::nullopt) << "small letters";
    EXPECT_EQ(decodeKey("a%FF"), std::nullopt) << "not UTF-8";
}

TEST(IniValue, quotesWhatWouldMeanSomethingElse)
{
    EXPECT_EQ(encodeText(""), R"("")");
    EXPECT_EQ(encodeText("a, b"), R"("a, b")");
    EXPECT_EQ(encodeText(" a"), R"(" a")");
    EXPECT_EQ(encodeText("@Empty()"), "\"@Empty()\"");
    EXPECT_EQ(encodeText("\"\\\n\t\x01\x7f"), "\"\\\"\\\\\\n\\t\\x01\\x7F\"");
    EXPECT_EQ(encodeList({"a", ""}), R"(a, "")");
}

TEST(IniValue, hasFormsOfItsOwnForEmptyListsAndDates)
{
    EXPECT_EQ(encodeList({}), "@Empty()");
    EXPECT_THAT(decodeList("@Empty()"), IsEmpty());
    EXPECT_EQ(encodeDate(date("2024-05-01T09:30:00Z")), "@Date(2024-05-01T09:30:00Z)");
    EXPECT_THAT(decodeDate("@Date(2024-05-01T09:30:00Z)"), Optional(date("2024-05-01T09:30:00Z")));
    EXPECT_EQ(decodeDate("@Date(2024-05-01)"), std::nullopt);
    EXPECT_EQ(decodeDate("2024-05-01T09:30:00Z"), std::nullopt);
    EXPECT_THAT(decodeList("@Date(2024-05-01)"), ElementsAre("@Date(2024-05-01)"));
}

TEST(IniValue, readsWhatPeopleWrite)
{
    EXPECT_THAT(decodeList(""), ElementsAre(""));
    EXPECT_THAT(decodeList("Open,Draft"), ElementsAre("Open", "Draft"));
    EXPECT_THAT(decodeList("Open ,  Draft"), ElementsAre("Open", "Draft"));
    EXPECT_THAT(decodeList("Open,"), ElementsAre("Open", ""));
    EXPECT_THAT(decodeList("\"a, b\" , c"), ElementsAre("a, b", "c"));
    EXPECT_THAT(decodeList(R"(C:\dir\x)"), ElementsAre(R"(C:\dir\x)"));
    EXPECT_THAT(decodeList(R"("open)"), ElementsAre("open"));
    EXPECT_THAT(decodeList("\xff"), ElementsAre("\uFFFD"));
}

TEST(IniValue, writesOtherBytesOfKeysAsTheirDigits)
{
    EXPECT_EQ(encodeKey("filters.status"), "filters.status");
    EXPECT_EQ(encodeKey("a/b|c%2F=é["), "a%2Fb%7Cc%252F%3D%C3%A9%5B");
}

RC_GTEST_PROP(IniValue, bringsListsBack, ())
{
    const auto texts = *rc::gen::container<std::vector<std::string>>(anyText());
    const std::string written = encodeList(texts);
    RC_ASSERT(decodeList(written) == texts);
    RC_ASSERT(!decodeDate(written));
    RC_ASSERT(written.find('\n') == std::string::npos);
}

RC_GTEST_PROP(IniValue, keepsDifferentKeysApart, ())
{
    const std::string one = *anyText();
    const std::string other = *anyText();
    RC_ASSERT((encodeKey(one) == encodeKey(other)) == (one == other));
}

}  // namespace
