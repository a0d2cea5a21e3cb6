#include "PullRequestKit/LocalizedStandardComparison.h"

#include <string_view>

#include <gmock/gmock.h>

// These tests run in the C locale, in which a plain comparison would go by bytes.
namespace {

using namespace PullRequestKit;
using namespace testing;

std::vector<std::string> sorted(std::vector<std::string> names)
{
    sortByLocalizedName(names, [](const std::string& name) -> std::string_view { return name; });
    return names;
}

TEST(LocalizedStandardComparison, sortsNothingAndOneName)
{
    EXPECT_THAT(sorted({}), IsEmpty());
    EXPECT_THAT(sorted({"a"}), ElementsAre("a"));
}

TEST(LocalizedStandardComparison, comparesRunsOfDigitsAsNumbers)
{
    EXPECT_THAT(
        sorted({"repo10", "repo2", "repo1", "repo"}),
        ElementsAre("repo", "repo1", "repo2", "repo10"));
    EXPECT_THAT(
        sorted({"v1.10.0", "v1.9.12", "v1.9.2"}), ElementsAre("v1.9.2", "v1.9.12", "v1.10.0"));
    EXPECT_THAT(
        sorted({"n100000000000000000000", "n99999999999999999999"}),
        ElementsAre("n99999999999999999999", "n100000000000000000000"));
}

TEST(LocalizedStandardComparison, comparesWithoutRegardToLetterCase)
{
    EXPECT_THAT(
        sorted({"octo/Zebra", "octo/apple", "Octo/Banana"}),
        ElementsAre("octo/apple", "Octo/Banana", "octo/Zebra"));
}

TEST(LocalizedStandardComparison, keepsTheOrderOfNamesThatCompareEqual)
{
    EXPECT_THAT(sorted({"Tools", "tools", "TOOLS"}), ElementsAre("Tools", "tools", "TOOLS"));
    EXPECT_THAT(sorted({"TOOLS", "b", "tools", "a"}), ElementsAre("a", "b", "TOOLS", "tools"));
}

TEST(LocalizedStandardComparison, putsAccentedLettersBesideTheirBaseLetters)
{
    EXPECT_THAT(
        sorted({"zoo", "\u00E9clair", "ete", "eclair"}),
        ElementsAre("eclair", "\u00E9clair", "ete", "zoo"));
}

TEST(LocalizedStandardComparison, sortsOtherScriptsAndBrokenTextWithoutLosingAny)
{
    EXPECT_THAT(
        sorted({"\u65E5\u672C", "\xFF\xFE", "a", "\u03B1"}),
        UnorderedElementsAre("a", "\u03B1", "\u65E5\u672C", "\xFF\xFE"));
    EXPECT_THAT(
        sorted({"\u65E5\u672C", "\u03B1", "a"}), ElementsAre("a", "\u03B1", "\u65E5\u672C"));
}

struct Named {
    std::string name;
    int mark;
};

TEST(LocalizedStandardComparison, sortsElementsByTheNamesTheyGive)
{
    std::vector<Named> elements{{"b", 1}, {"A", 2}, {"a", 3}};
    sortByLocalizedName(
        elements, [](const Named& element) { return std::string_view(element.name); });
    std::vector<int> marks;
    for (const Named& element : elements) {
        marks.push_back(element.mark);
    }
    EXPECT_THAT(marks, ElementsAre(2, 3, 1));
}

}  // namespace
