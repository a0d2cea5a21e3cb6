#include "PullRequestKit/Json/Reading.h"
#include "PullRequestKit/Json/Writing.h"
#include "PullRequestKit/ProgressCount.h"
#include "Support/Errors.h"

#include <limits>
#include <vector>

namespace {

using namespace TestSupport;

TEST(JsonDocument, readsAnyKindOfValueWithWhiteSpaceAroundIt)
{
    EXPECT_EQ(Json::Document(" {} \r\n\t").root(), boost::json::object());
    EXPECT_EQ(Json::Document("[1]\n").root().as_array().size(), 1U);
    EXPECT_EQ(Json::Document("\"é\"").root(), "é");
    EXPECT_EQ(Json::Document("12").root(), 12);
    EXPECT_TRUE(Json::Document("null").root().is_null());
}

TEST(RefusedDocument, isNotJson)
{
    for (const std::string_view each : std::initializer_list<std::string_view>{
             "",
             " ",
             "\n\n",
             std::string_view("\0", 1),
             "gh: command not found",
             "<html></html>",
             "{'a':1}",
             "{a:1}",
             "[1,]",
             "{\"a\":1,}",
             "NaN",
             "Infinity",
             "01",
             "+1",
             ".5",
             "1.",
             "// comment\n1",
             "\"tab\there\"",
             "\xEF\xBB\xBF{}",
             "\x1B[1;37m{\x1B[m}",
             "{",
             "[1",
             "{\"a\"",
             "{\"a\":",
             "\"text",
             "tru",
             "-",
             "1e",
             "\"\\u00",
             "{}{}",
             "{} x",
             "1 2",
             "[]]",
             "null,",
             "\"\xFF\"",
             "\"\xC3\"",
             "\"\xC0\xAF\"",
             "\"\xED\xA0\x80\"",
             "\"\xF4\x90\x80\x80\"",
             "{\"\xFF\":1}",
             "\"\\uD800\"",
             "\"\\uDC00\"",
             "\"\\x\""}) {
        SCOPED_TRACE(each);
        const auto parse = [&] { const Json::Document document(each); };
        EXPECT_EQ(pathOf(parse), "");
        EXPECT_THAT(
            messageOf(parse), StartsWith("The data could not be read: it is not JSON (byte "));
    }
}

std::string nested(std::size_t depth)
{
    return std::string(depth, '[') + std::string(depth, ']');
}

TEST(JsonDocument, isNestedAtMostThirtyTwoDeep)
{
    EXPECT_NO_THROW(Json::Document(nested(32)));
    EXPECT_THROW(Json::Document(nested(33)), DecodingError);
    EXPECT_THROW(Json::Document(nested(1'000'000)), DecodingError);
    EXPECT_THROW(Json::Document(std::string(1'000'000, '[')), DecodingError);
}

TEST(JsonDocument, namesTheByteAtWhichReadingEnded)
{
    const auto parse = [] { const Json::Document document("{\"a\":x}"); };
    EXPECT_THAT(
        messageOf(parse), StartsWith("The data could not be read: it is not JSON (byte 5: "));
}

TEST(JsonDocument, keepsAllValuesInMemoryThatGoesAwayAsAWhole)
{
    const Json::Document document(
        R"({"list":[{"key":"a text that is too long to lie in place"}]})");
    const boost::json::value& list = document.root().at("list");
    for (const boost::json::value* const value : {&document.root(), &list, &list.at(0).at("key")}) {
        EXPECT_TRUE(value->storage().is_deallocate_trivial());
    }
}

TEST(JsonReading, readsWholeNumbersOfSixtyFourBits)
{
    EXPECT_EQ(Json::decode<std::int64_t>("0"), 0);
    EXPECT_EQ(
        Json::decode<std::int64_t>("9223372036854775807"),
        std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(
        Json::decode<std::int64_t>("-9223372036854775808"),
        std::numeric_limits<std::int64_t>::min());
}

TEST(JsonReading, refusesNumbersThatAreNoWholeNumbersOfSixtyFourBits)
{
    for (const auto* text :
         {"9223372036854775808",
          "-9223372036854775809",
          "18446744073709551616",
          "1e400",
          "0.5",
          "1e-3"}) {
        EXPECT_EQ(
            messageOf([&] { Json::decode<std::int64_t>(text); }),
            "The data could not be read: it is not a whole number.")
            << text;
    }
}

TEST(JsonReading, takesTheLastOfRepeatedKeys)
{
    const auto progress = Json::decode<ProgressCount>(
        R"({"completed":1,"total":2,"completed":3,"failed":4,"failed":5})");
    EXPECT_EQ(progress, (ProgressCount{3, 2, 5}));
}

TEST(JsonReading, readsEscapedText)
{
    EXPECT_EQ(Json::decode<std::string>(R"("\"\\\/\n\u00e9\ud83e\udd80")"), "\"\\/\né🦀");
    EXPECT_EQ(Json::decode<std::string>(R"("a\u0000b")"), std::string("a\0b", 3));
    EXPECT_EQ(Json::decode<ProgressCount>(R"({"\u0063ompleted":1,"total":2})").completed, 1);
}

TEST(JsonReading, readsListsAndSets)
{
    EXPECT_THAT(Json::decode<std::vector<bool>>("[true,false]"), ElementsAre(true, false));
    EXPECT_THAT(Json::decode<std::set<std::string>>(R"(["b","a","b"])"), ElementsAre("a", "b"));
    EXPECT_THAT(Json::decode<std::vector<std::int64_t>>("[]"), IsEmpty());
}

TEST(JsonReading, refusesANullEntryOfAList)
{
    const auto read = [] { Json::decode<std::set<std::string>>(R"(["a",null])"); };
    EXPECT_EQ(pathOf(read), "[1]");
    EXPECT_EQ(messageOf(read), "The data could not be read: [1] is not text.");
}

TEST(JsonReading, readsAndWritesNullEntriesWhereTheyAreAllowed)
{
    using Numbers = std::vector<std::optional<std::int64_t>>;
    const Numbers numbers{1, std::nullopt, 3};
    EXPECT_EQ(Json::decode<Numbers>("[1,null,3]"), numbers);
    EXPECT_EQ(Json::encode(numbers), "[1,null,3]");
}

TEST(JsonReading, tellsAbsentFromNullMembersOnlyByTheKey)
{
    const Json::Document document(R"({"null":null,"false":false})");
    const auto& object = document.root().as_object();
    EXPECT_EQ(Json::presentMember(object, "null"), nullptr);
    EXPECT_EQ(Json::presentMember(object, "missing"), nullptr);
    ASSERT_NE(Json::presentMember(object, "false"), nullptr);
    EXPECT_EQ(*Json::presentMember(object, "false"), false);
}

TEST(JsonPath, joinsMembersAndElements)
{
    const Json::Path root;
    EXPECT_EQ(root.text(), "");
    const Json::Path data = root.member("data");
    const Json::Path nodes = data.member("nodes");
    const Json::Path third = nodes.element(3);
    EXPECT_EQ(third.member("number").text(), "data.nodes[3].number");
    EXPECT_EQ(root.element(0).text(), "[0]");
}

}  // namespace
