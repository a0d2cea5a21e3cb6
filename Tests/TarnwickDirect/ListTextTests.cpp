#include "TarnwickDirect/CommandLine/ListText.h"

#include "PullRequestKit/StackBuilder.h"
#include "Support/PullRequests.h"

#include <gmock/gmock.h>

namespace {

using namespace PullRequestKit;
using namespace TarnwickDirect;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using TestSupport::makePullRequest;

std::string list(const std::vector<PullRequest>& pullRequests, const TerminalTraits& terminal = {})
{
    return listText(
        StackBuilder::rows(pullRequests), [](const PullRequest&) { return false; }, terminal);
}

PullRequest titled(PullRequest pullRequest, std::string title)
{
    pullRequest.title = std::move(title);
    return pullRequest;
}

TEST(ListText, isEmptyWithoutRows)
{
    EXPECT_EQ(list({}), "");
}

TEST(ListText, drawsStacksAsATree)
{
    const std::string text = list(
        {titled(makePullRequest(1, "a", "main"), "one"),
         titled(makePullRequest(2, "b", "a"), "two"),
         titled(makePullRequest(3, "c", "b"), "three"),
         titled(makePullRequest(4, "d", "a"), "four"),
         titled(makePullRequest(5, "e", "main"), "five")});
    EXPECT_EQ(
        text,
        "#1 one          octo/tools  open  no reviews  no checks\n"
        "├─ #2 two       octo/tools  open  no reviews  no checks\n"
        "│  └─ #3 three  octo/tools  open  no reviews  no checks\n"
        "└─ #4 four      octo/tools  open  no reviews  no checks\n"
        "#5 five         octo/tools  open  no reviews  no checks\n");
}

TEST(ListText, saysWhatStandsInTheWay)
{
    auto conflicting = makePullRequest(1);
    conflicting.mergeability = PullRequestMergeability::conflicting;
    conflicting.reviewState = ReviewState::changesRequested;
    conflicting.reviews = {1, 2, 0};
    conflicting.requiredApprovingReviewCount = 2;
    conflicting.checks = {3, 5, 2};
    EXPECT_THAT(
        list({conflicting}),
        EndsWith("  conflict  changes requested 1/2/2  checks 3/5, 2 failed\n"));
}

TEST(ListText, tellsDraftsApart)
{
    auto draft = makePullRequest(1);
    draft.isDraft = true;
    EXPECT_THAT(list({draft}), HasSubstr("  draft  "));
}

TEST(ListText, countsReviewsThatAreRequiredThoughNobodyIsAsked)
{
    auto unreviewed = makePullRequest(1);
    unreviewed.requiredApprovingReviewCount = 1;
    EXPECT_THAT(list({unreviewed}), HasSubstr("  no reviews 0/1/0  "));
}

TEST(ListText, carriesWarnings)
{
    const auto x = makePullRequest(1, "x", "y");
    const auto y = makePullRequest(2, "y", "x");
    EXPECT_THAT(list({x, y}), HasSubstr("no checks\n   Cyclic branch dependency\n"));
}

TEST(ListText, cutsTitlesToTheTerminalsWidth)
{
    const auto pullRequest = titled(makePullRequest(1), std::string(200, 'x'));
    const TerminalTraits narrow{.isTerminal = true, .hasColours = false, .columns = 90};
    const std::string text = list({pullRequest}, narrow);
    EXPECT_EQ(displayWidth(text.substr(0, text.size() - 1)), 90);
    EXPECT_THAT(text, HasSubstr("x…  octo/tools"));
    EXPECT_THAT(list({pullRequest}), HasSubstr(std::string(200, 'x')));
}

TEST(ListText, keepsTwentyColumnsOfATitleOnAnyTerminal)
{
    const auto pullRequest = titled(makePullRequest(1), std::string(200, 'x'));
    const TerminalTraits narrow{.isTerminal = true, .hasColours = false, .columns = 10};
    EXPECT_THAT(list({pullRequest}, narrow), StartsWith("#1 xxxxxxxxxxxxxxxx…  "));
}

TEST(ListText, usesColoursWhereThereAreSome)
{
    const TerminalTraits colours{.isTerminal = true, .hasColours = true, .columns = 100};
    EXPECT_THAT(list({makePullRequest(1)}, colours), HasSubstr("\x1b[32mopen\x1b[0m"));
    EXPECT_THAT(list({makePullRequest(1)}), Not(HasSubstr("\x1b")));
}

TEST(ListText, makesVisitedTitlesFaint)
{
    const TerminalTraits colours{.isTerminal = true, .hasColours = true, .columns = 100};
    const auto rows = StackBuilder::rows({titled(makePullRequest(1), "seen")});
    const auto visited = [](const PullRequest&) { return true; };
    EXPECT_THAT(listText(rows, visited, colours), StartsWith("\x1b[2m#1 seen\x1b[0m"));
}

TEST(ListText, titlesCannotSteerTheTerminal)
{
    const auto pullRequest = titled(makePullRequest(1), "\x1b]0;owned\x07 title\nnext");
    EXPECT_THAT(list({pullRequest}), HasSubstr("#1 �]0;owned� title�next"));
}

}  // namespace
