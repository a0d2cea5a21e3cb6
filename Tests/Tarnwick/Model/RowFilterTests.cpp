#include "Tarnwick/Model/RowFilter.h"

#include "Support/PullRequests.h"

namespace {

using namespace TestSupport;

Settings settings()
{
    Settings settings;
    settings.selectedRepositories = {"octo/tools"};
    return settings;
}

bool passesFilters(const PullRequest& pullRequest, const Settings& settings)
{
    return sightOf(pullRequest, settings) == Sight::inSight;
}

TEST(RowFilter, showsOnlySelectedRepositories)
{
    EXPECT_TRUE(passesFilters(makePullRequest(1), settings()));
    auto other = settings();
    other.selectedRepositories = {"octo/site"};
    EXPECT_FALSE(passesFilters(makePullRequest(1), other));
}

TEST(RowFilter, anEmptySelectionShowsNothing)
{
    auto none = settings();
    none.selectedRepositories.clear();
    EXPECT_FALSE(passesFilters(makePullRequest(1), none));
}

TEST(RowFilter, draftsPassByTheDraftStatusAlone)
{
    const auto draft = with(makePullRequest(1), &PullRequest::isDraft, true);
    auto filter = settings();
    filter.statuses = {StatusFilter::open};
    EXPECT_FALSE(passesFilters(draft, filter));
    EXPECT_TRUE(passesFilters(makePullRequest(2), filter));
    filter.statuses = {StatusFilter::draft};
    EXPECT_TRUE(passesFilters(draft, filter));
    EXPECT_FALSE(passesFilters(makePullRequest(2), filter));
    filter.statuses = {};
    EXPECT_FALSE(passesFilters(draft, filter));
    EXPECT_FALSE(passesFilters(makePullRequest(2), filter));
}

TEST(RowFilter, closedAndMergedOnesNeverPass)
{
    auto filter = settings();
    filter.statuses = {StatusFilter::open, StatusFilter::draft};
    for (const PullRequestState state : {PullRequestState::closed, PullRequestState::merged}) {
        const auto pullRequest = with(makePullRequest(1), &PullRequest::state, state);
        EXPECT_FALSE(passesFilters(pullRequest, filter));
    }
}

TEST(RowFilter, mergeabilityGoesByItsName)
{
    const std::vector<std::pair<PullRequestMergeability, MergeabilityFilter>> cases{
        {PullRequestMergeability::mergeable, MergeabilityFilter::mergeable},
        {PullRequestMergeability::conflicting, MergeabilityFilter::conflicting},
        {PullRequestMergeability::unknown, MergeabilityFilter::unknown}};
    for (const auto& [mergeability, own] : cases) {
        const auto pullRequest = with(makePullRequest(1), &PullRequest::mergeability, mergeability);
        for (const MergeabilityFilter filtered : allCases<MergeabilityFilter>()) {
            auto filter = settings();
            filter.mergeabilities = {filtered};
            EXPECT_EQ(passesFilters(pullRequest, filter), filtered == own);
        }
        auto nothing = settings();
        nothing.mergeabilities = {};
        EXPECT_FALSE(passesFilters(pullRequest, nothing));
    }
}

TEST(RowFilter, everyReviewPassesNoneOrAllOfTheReviewFilters)
{
    auto filter = settings();
    filter.reviewFilters = {};
    EXPECT_TRUE(passesFilters(makePullRequest(1), filter));
    auto reviewed = makePullRequest(2);
    reviewed.reviewActivity.hasSubmittedReview = true;
    filter.reviewFilters = {
        ReviewFilter::approved,
        ReviewFilter::changesRequested,
        ReviewFilter::commented,
        ReviewFilter::none};
    EXPECT_TRUE(passesFilters(reviewed, filter));
}

TEST(RowFilter, oneMatchingReviewFilterIsEnough)
{
    auto pullRequest = makePullRequest(1);
    pullRequest.reviewActivity = {true, false, true, true};
    const auto passes = [&](std::set<ReviewFilter> filters) {
        auto filter = settings();
        filter.reviewFilters = std::move(filters);
        return passesFilters(pullRequest, filter);
    };
    EXPECT_TRUE(passes({ReviewFilter::approved}));
    EXPECT_FALSE(passes({ReviewFilter::changesRequested}));
    EXPECT_TRUE(passes({ReviewFilter::commented}));
    EXPECT_FALSE(passes({ReviewFilter::none}));
    EXPECT_TRUE(passes({ReviewFilter::changesRequested, ReviewFilter::approved}));
    EXPECT_FALSE(passes({ReviewFilter::changesRequested, ReviewFilter::none}));
    pullRequest.reviewActivity = {};
    EXPECT_TRUE(passes({ReviewFilter::none}));
    EXPECT_FALSE(passes({ReviewFilter::approved}));
}

TEST(RowFilter, checksBelongToExactlyOneCase)
{
    EXPECT_EQ(checksCase({0, 0, 0}), ChecksFilter::none);
    EXPECT_EQ(checksCase({3, 4, 1}), ChecksFilter::fail);
    EXPECT_EQ(checksCase({1, 4, 1}), ChecksFilter::fail);
    EXPECT_EQ(checksCase({4, 4, 0}), ChecksFilter::pass);
    EXPECT_EQ(checksCase({3, 4, 0}), ChecksFilter::pending);
}

TEST(RowFilter, aPullRequestWithoutChecksShowsOnlyWhenNoneIsSelected)
{
    auto filter = settings();
    filter.checks = {ChecksFilter::pending, ChecksFilter::pass, ChecksFilter::fail};
    EXPECT_FALSE(passesFilters(makePullRequest(1), filter));
    filter.checks = {ChecksFilter::none};
    EXPECT_TRUE(passesFilters(makePullRequest(1), filter));
    filter.checks = {};
    EXPECT_FALSE(passesFilters(makePullRequest(1), filter));
}

TEST(RowFilter, tellsTheFirstFilterThatHides)
{
    auto pullRequest = makePullRequest(1);
    pullRequest.isDraft = true;
    pullRequest.mergeability = PullRequestMergeability::conflicting;
    pullRequest.checks = {1, 2, 1};
    Settings filter;
    filter.mergeabilities = {};
    filter.reviewFilters = {ReviewFilter::approved};
    filter.checks = {};
    EXPECT_EQ(sightOf(pullRequest, filter), Sight::otherRepository);
    filter.selectedRepositories = {"octo/tools"};
    EXPECT_EQ(sightOf(pullRequest, filter), Sight::hiddenByStatus);
    filter.statuses.insert(StatusFilter::draft);
    EXPECT_EQ(sightOf(pullRequest, filter), Sight::hiddenByMergeability);
    filter.mergeabilities = {MergeabilityFilter::conflicting};
    EXPECT_EQ(sightOf(pullRequest, filter), Sight::hiddenByReviews);
    filter.reviewFilters = {};
    EXPECT_EQ(sightOf(pullRequest, filter), Sight::hiddenByChecks);
    filter.checks = {ChecksFilter::fail};
    EXPECT_EQ(sightOf(pullRequest, filter), Sight::inSight);
}

TEST(RowFilter, isHiddenOnlyInSelectedRepositories)
{
    EXPECT_FALSE(isHidden(Sight::otherRepository));
    EXPECT_FALSE(isHidden(Sight::inSight));
    EXPECT_TRUE(isHidden(Sight::hiddenByStatus));
    EXPECT_TRUE(isHidden(Sight::hiddenByMergeability));
    EXPECT_TRUE(isHidden(Sight::hiddenByReviews));
    EXPECT_TRUE(isHidden(Sight::hiddenByChecks));
}

class StackWithDraft : public testing::Test {
protected:
    StackWithDraft()
    {
        pullRequests[1].isDraft = true;
        pullRequests[3].id.repository = "octo/site";
    }

    std::vector<PullRequest> pullRequests{
        makePullRequest(3, "c", "b"),
        makePullRequest(2, "b", "a"),
        makePullRequest(1, "a", "main"),
        makePullRequest(4)};
};

TEST_F(StackWithDraft, stacksWhatIsLeftAndCountsWhatIsNot)
{
    const FilteredRows list = filteredRows(pullRequests, settings());
    ASSERT_EQ(list.rows.size(), 2U);
    EXPECT_EQ(list.rows[0].depth, 0);
    EXPECT_EQ(list.rows[1].depth, 0);
    EXPECT_EQ(list.hidden.filters, 1U);
    EXPECT_EQ(list.hidden.total(), 1U);
}

TEST_F(StackWithDraft, isWholeWithTheHiddenOnes)
{
    const auto rows = rowsWithHidden(pullRequests, settings());
    ASSERT_EQ(rows.size(), 3U);
    for (std::int64_t depth = 0; depth < 3; ++depth) {
        const PullRequestRow& row = rows[static_cast<std::size_t>(depth)];
        EXPECT_EQ(row.id().number, depth + 1);
        EXPECT_EQ(row.depth, depth);
    }
}

TEST(HiddenCountsTests, saysInASentenceWhatHides)
{
    EXPECT_EQ(hiddenSentence({.filters = 0}), "");
    EXPECT_EQ(hiddenSentence({.filters = 1}), "1 is hidden by filters.");
    EXPECT_EQ(hiddenSentence({.filters = 9}), "9 are hidden by filters.");
}

}  // namespace
