#include "TarnwickDirect/CommandLine/ListText.h"

#include "PullRequestKit/StackBuilder.h"
#include "Support/PullRequests.h"

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <cwchar>
#include <sstream>

#include <rapidcheck/gtest.h>

namespace {

using namespace TarnwickDirect;
using namespace TestSupport;

bool noneIsVisited(const PullRequest& /*pullRequest*/)
{
    return false;
}

TerminalTraits terminal(int columns)
{
    return {.isTerminal = true, .canErase = true, .hasColors = false, .columns = columns};
}

std::string list(const std::vector<PullRequest>& pullRequests, const TerminalTraits& traits = {})
{
    return listText({StackBuilder::rows(pullRequests), {}, {}}, noneIsVisited, traits);
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
    const auto draft = with(makePullRequest(1), &PullRequest::isDraft, true);
    EXPECT_THAT(list({draft}), HasSubstr("  draft  "));
}

TEST(ListText, countsReviewsThatAreRequiredThoughNobodyIsAsked)
{
    const auto unreviewed = with(makePullRequest(1), &PullRequest::requiredApprovingReviewCount, 1);
    EXPECT_THAT(list({unreviewed}), HasSubstr("  no reviews 0/1/0  "));
}

TEST(ListText, carriesWarnings)
{
    const auto x = makePullRequest(1, "x", "y");
    const auto y = makePullRequest(2, "y", "x");
    EXPECT_THAT(list({x, y}), HasSubstr("no checks\n   Cyclic branch dependency\n"));
}

TEST(ListText, goesOnWithTheTreeBesideAWarning)
{
    auto rows = StackBuilder::rows(
        {titled(makePullRequest(1, "a", "main"), "one"),
         titled(makePullRequest(2, "b", "a"), "two"),
         titled(makePullRequest(3, "c", "a"), "three")});
    ASSERT_EQ(rows.size(), 3U);
    rows[0].warning = "Ambiguous base branch";
    rows[1].warning = "Ambiguous base branch";
    EXPECT_EQ(
        listText({rows, {}, {}}, noneIsVisited, {}),
        "#1 one       octo/tools  open  no reviews  no checks\n"
        "│  Ambiguous base branch\n"
        "├─ #2 two    octo/tools  open  no reviews  no checks\n"
        "│     Ambiguous base branch\n"
        "└─ #3 three  octo/tools  open  no reviews  no checks\n");
}

TEST(ListText, cutsTitlesThatHaveHalfOfTheWidth)
{
    const auto pullRequest = titled(makePullRequest(1), std::string(200, 'x'));
    // The details take 41 columns.
    EXPECT_EQ(
        list({pullRequest}, terminal(90)),
        "#1 " + std::string(45, 'x') + "…  octo/tools  open  no reviews  no checks\n");
    EXPECT_THAT(list({pullRequest}), HasSubstr(std::string(200, 'x')));
}

TEST(ListText, foldsWhereTitlesWouldHaveLessThanHalfOfTheWidth)
{
    const auto pullRequest = titled(makePullRequest(1), std::string(200, 'x'));
    EXPECT_EQ(
        list({pullRequest}, terminal(80)),
        "#1 " + std::string(76, 'x') + "…\n   octo/tools  open  no reviews  no checks\n");
}

TEST(ListText, foldsNothingWhileWholeTitlesFit)
{
    EXPECT_EQ(
        list({titled(makePullRequest(1), "A title")}, terminal(51)),
        "#1 A title  octo/tools  open  no reviews  no checks\n");
    EXPECT_EQ(
        list({titled(makePullRequest(1), "A title")}, terminal(50)),
        "#1 A title\n   octo/tools  open  no reviews  no checks\n");
}

TEST(ListText, goesOnWithTheTreeBesideFoldedDetails)
{
    const std::string text = list(
        {titled(makePullRequest(1, "a", "main"), "one"),
         titled(makePullRequest(2, "b", "a"), "two"),
         titled(makePullRequest(3, "c", "b"), "three"),
         titled(makePullRequest(4, "d", "a"), "four")},
        terminal(30));
    EXPECT_EQ(
        text,
        "#1 one\n"
        "│  octo/tools  open\n"
        "│  no reviews  no checks\n"
        "├─ #2 two\n"
        "│  │  octo/tools  open\n"
        "│  │  no reviews  no checks\n"
        "│  └─ #3 three\n"
        "│        octo/tools  open\n"
        "│        no reviews  no checks\n"
        "└─ #4 four\n"
        "      octo/tools  open\n"
        "      no reviews  no checks\n");
}

TEST(ListText, cutsWhatIsWiderThanANarrowTerminal)
{
    const auto x = makePullRequest(1, "x", "y");
    const auto y = makePullRequest(2, "y", "x");
    EXPECT_THAT(
        list({titled(x, "日本語"), titled(y, "two")}, terminal(8)),
        StartsWith("#1 日本…\n"
                   "   octo…\n"
                   "   open\n"
                   "   no r…\n"
                   "   no c…\n"
                   "   Cycl…\n"));
}

TEST(ListText, shortensATreeThatIsTooDeep)
{
    const std::vector<PullRequest> chain{
        titled(makePullRequest(1, "a", "main"), "one"),
        titled(makePullRequest(2, "b", "a"), "two"),
        titled(makePullRequest(3, "c", "b"), "three"),
        titled(makePullRequest(4, "d", "c"), "four"),
        titled(makePullRequest(5, "e", "d"), "five")};
    const std::string text = list(chain, terminal(18));
    EXPECT_THAT(text, HasSubstr("\n      └─ #4 four\n"));
    EXPECT_THAT(text, HasSubstr("\n…     └─ #5 five\n"));
}

/// The columns that the C library gives the text.
int libraryWidth(const std::string& text)
{
    std::wstring wide(text.size(), L'\0');
    wide.resize(std::mbstowcs(wide.data(), text.c_str(), wide.size()));
    int columns = 0;
    for (const wchar_t character : wide) {
        columns += std::max(::wcwidth(character), 0);
    }
    return columns;
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// Titles out of what terminals find hard.
rc::Gen<std::string> anyTitle()
{
    const auto piece = rc::gen::element<std::string>(
        "a",
        "word ",
        "日本",
        "🦀",
        "☎️",
        "👩‍👩‍👧",
        "🇩🇪",
        "e\u0301\u0302\u0303",
        "שלום",
        "مرحبا",
        "\u202E",
        "\u00AD",
        "\u200B",
        "\x1b[31m",
        "\n",
        "\t",
        "\u0600",
        "각",
        "\uE0B0");
    return rc::gen::map(
        rc::gen::container<std::vector<std::string>>(piece),
        [](const std::vector<std::string>& pieces) {
            std::string text;
            for (const std::string& part : pieces) {
                text += part;
            }
            return text;
        });
}

std::vector<PullRequestRow> anyRows()
{
    auto pullRequests = *rc::gen::container<std::vector<PullRequest>>(crowdedPullRequest());
    for (PullRequest& pullRequest : pullRequests) {
        pullRequest.title = *anyTitle();
    }
    return StackBuilder::rows(pullRequests);
}

RC_GTEST_PROP(ListTextProperties, noLineIsWiderThanTheTerminal, ())
{
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    const int columns = *rc::gen::inRange(1, 160);
    for (const std::string& line :
         linesOf(listText({anyRows(), {}, {}}, noneIsVisited, terminal(columns)))) {
        RC_ASSERT(displayWidth(line) <= columns);
        RC_ASSERT(libraryWidth(line) <= columns);
    }
}

RC_GTEST_PROP(ListTextProperties, titlesKeepHalfOfTheWidth, ())
{
    const int columns = *rc::gen::inRange(1, 160);
    const auto rows = anyRows();
    const auto lines = linesOf(listText({rows, {}, {}}, noneIsVisited, terminal(columns)));
    std::size_t next = 0;
    for (const PullRequestRow& row : rows) {
        const std::string number = "#" + std::to_string(row.id().number) + " ";
        const std::string title = number + singleLine(row.pullRequest.title);
        const std::string least = elided(title, std::min((columns + 1) / 2, 50));
        const std::string shown =
            least.ends_with("…") ? least.substr(0, least.size() - std::string("…").size()) : least;
        while (next < lines.size() && lines[next].find(shown) == std::string::npos) {
            ++next;
        }
        RC_ASSERT(next < lines.size());
        ++next;
    }
}

ArrangedRows arrangedList()
{
    ArrangedRows list;
    list.rows = StackBuilder::rows(
        {titled(makePullRequest(1, "a", "main"), "one"),
         titled(makePullRequest(2, "b", "a"), "two"),
         titled(makePullRequest(3, "c", "main"), "three")});
    list.turns = {
        {Whose::you, TurnReason::yourReview},
        {Whose::others, TurnReason::waitingFor, {"mara-lindqvist", "noa-b", "tomasz-w"}},
        {Whose::others}};
    list.groups = {{Whose::you, 0, 2, 1}, {Whose::others, 2, 1, 1}};
    return list;
}

std::string byTurn(const ArrangedRows& list, const TerminalTraits& traits = {})
{
    return listText(list, noneIsVisited, traits);
}

TEST(ListText, standsUnderHeadingsWithReasonsByWhoseTurn)
{
    EXPECT_EQ(
        byTurn(arrangedList()),
        "Waiting on You  1\n"
        "#1 one     Your review                                  octo/tools  open  no reviews  no "
        "checks\n"
        "└─ #2 two  Waiting for mara-lindqvist, noa-b, tomasz-w  octo/tools  open  no reviews  no "
        "checks\n"
        "\n"
        "Waiting on Others  1\n"
        "#3 three                                                octo/tools  open  no reviews  no "
        "checks\n");
}

TEST(ListText, shortensReasonsToTheirFirstName)
{
    EXPECT_EQ(
        byTurn(arrangedList(), terminal(60)),
        "Waiting on You  1\n"
        "#1 one\n"
        "│  Your review  octo/tools  open  no reviews  no checks\n"
        "└─ #2 two\n"
        "      Waiting for mara-lindqvist, +2  octo/tools  open\n"
        "      no reviews  no checks\n"
        "\n"
        "Waiting on Others  1\n"
        "#3 three\n"
        "   octo/tools  open  no reviews  no checks\n");
    EXPECT_THAT(
        byTurn(arrangedList(), terminal(36)),
        HasSubstr("\n      Waiting for m…, +2  octo/tools\n"));
}

TEST(ListText, namesInReasonsCannotSteerTheTerminal)
{
    ArrangedRows list = arrangedList();
    list.turns[1].names = {"\x1b]0;owned\x07", "two\nlines"};
    EXPECT_THAT(byTurn(list), HasSubstr("Waiting for �]0;owned�, two�lines  "));
}

TEST(ListText, makesHeadingsAndWhatAsksSomethingStrong)
{
    TerminalTraits colors = terminal(120);
    colors.hasColors = true;
    const std::string text = byTurn(arrangedList(), colors);
    EXPECT_THAT(text, StartsWith("\x1b[1mWaiting on You  1\x1b[0m\n"));
    EXPECT_THAT(text, HasSubstr("\x1b[1mYour review\x1b[0m"));
    EXPECT_THAT(text, HasSubstr("\x1b[2mWaiting for "));
}

RC_GTEST_PROP(ListTextProperties, noLineByWhoseTurnIsWiderThanTheTerminal, ())
{
    const int columns = *rc::gen::inRange(1, 160);
    ArrangedRows list;
    list.rows = anyRows();
    for (std::size_t row = 0; row < list.rows.size(); ++row) {
        const auto whose = *rc::gen::element(Whose::you, Whose::others);
        list.turns.push_back(
            {whose, TurnReason::waitingFor, {*anyTitle(), *anyTitle(), *anyTitle()}});
        list.groups.push_back({whose, row, 1, 1});
    }
    for (const std::string& line : linesOf(byTurn(list, terminal(columns)))) {
        RC_ASSERT(displayWidth(line) <= columns);
    }
}

TEST(ListText, usesColorsWhereThereAreSome)
{
    TerminalTraits colors = terminal(100);
    colors.hasColors = true;
    EXPECT_THAT(list({makePullRequest(1)}, colors), HasSubstr("\x1b[32mopen\x1b[0m"));
    EXPECT_THAT(list({makePullRequest(1)}), Not(HasSubstr("\x1b")));
}

TEST(ListText, makesVisitedTitlesFaint)
{
    TerminalTraits colors = terminal(100);
    colors.hasColors = true;
    const auto rows = StackBuilder::rows({titled(makePullRequest(1), "seen")});
    const auto visited = [](const PullRequest&) { return true; };
    EXPECT_THAT(listText({rows, {}, {}}, visited, colors), StartsWith("\x1b[2m#1 seen\x1b[0m"));
}

TEST(ListText, titlesCannotSteerTheTerminal)
{
    const auto pullRequest = titled(makePullRequest(1), "\x1b]0;owned\x07 title\nnext");
    EXPECT_THAT(list({pullRequest}), HasSubstr("#1 �]0;owned� title�next"));
}

}  // namespace
