#include "Tarnwick/Persistence/SeenTexts.h"

#include "Support/Joined.h"
#include "Support/PullRequests.h"

#include <rapidcheck/gtest.h>

namespace {

using namespace TestSupport;

SeenPullRequest seen()
{
    return {
        .updatedAt = date("2024-05-01T12:00:00Z"),
        .state = PullRequestState::open,
        .isDraft = false,
        .mergeability = PullRequestMergeability::conflicting,
        .reviewState = ReviewState::changesRequested,
        .reviews = {1, 2, 0},
        .checks = {2, 4, 1},
        .headCommit = "1a2b3c"};
}

TEST(SeenTextsTests, haveOnePlaceForEverything)
{
    SeenPullRequest pullRequest = seen();
    EXPECT_EQ(
        joined(seenTexts(pullRequest)),
        "2024-05-01T12:00:00Z, open, ready, conflicting, changesRequested, 1/2, 2/4/1, 1a2b3c");
    pullRequest.headCommit.reset();
    pullRequest.isDraft = true;
    EXPECT_EQ(seenTexts(pullRequest).size(), 7U);
    EXPECT_EQ(seenTexts(pullRequest)[2], "draft");
}

TEST(SeenTextsTests, areNotUnderstoodWhereOneOfThemIsWrong)
{
    const std::vector<std::string> texts = seenTexts(seen());
    EXPECT_EQ(seenFromTexts(texts), seen());
    const std::vector<std::pair<std::size_t, const char*>> wrongs{
        {0, "yesterday"},
        {1, "Open"},
        {2, "true"},
        {3, ""},
        {4, "none "},
        {5, "1"},
        {5, "1/2/3"},
        {5, "-1/2"},
        {5, "1/2 "},
        {6, "2/4"},
        {6, "2/4/x"},
        {6, "2//1"},
        {6, "2/4/"},
        {5, "1/ 2"},
        {5, ""},
        {6, "9999999999999999999999/1/1"}};
    for (const auto& [place, wrong] : wrongs) {
        std::vector<std::string> others = texts;
        others[place] = wrong;
        EXPECT_EQ(seenFromTexts(others), std::nullopt) << place << " " << wrong;
    }
    EXPECT_EQ(seenFromTexts({}), std::nullopt);
    EXPECT_EQ(seenFromTexts(std::span(texts).first(6)), std::nullopt);
    std::vector<std::string> tooMany = texts;
    tooMany.emplace_back("more");
    EXPECT_EQ(seenFromTexts(tooMany), std::nullopt);
}

RC_GTEST_PROP(SeenTextsTests, comeBackAsTheyWere, ())
{
    PullRequest pullRequest = *rc::gen::arbitrary<PullRequest>();
    const auto count = rc::gen::inRange<std::int64_t>(0, 1'000'000);
    pullRequest.reviews = {*count, *count, 0};
    pullRequest.checks = {*count, *count, *count};
    const SeenPullRequest before = seenNow(pullRequest, nullptr);
    RC_ASSERT(seenFromTexts(seenTexts(before)) == before);
}

}  // namespace
