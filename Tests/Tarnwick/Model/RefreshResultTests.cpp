#include "Tarnwick/Model/RefreshResult.h"

#include "Support/Mapped.h"
#include "Support/PullRequests.h"

namespace {

using namespace TestSupport;

PullRequest draft(std::int64_t number)
{
    return with(makePullRequest(number), &PullRequest::isDraft, true);
}

RefreshStart startWith(Settings settings)
{
    return {"octo", std::make_shared<const Settings>(std::move(settings))};
}

Settings openOnesOfTools()
{
    Settings settings;
    settings.selectedRepositories = {"octo/tools"};
    settings.reviewFilters = {ReviewFilter::approved};
    return settings;
}

std::vector<std::int64_t> numbers(const std::vector<PullRequestRow>& rows)
{
    return mapped(rows, [](const auto& row) { return row.id().number; });
}

TEST(RefreshResults, holdTheRowsThatTheSettingsLeave)
{
    Settings settings;
    settings.selectedRepositories = {"octo/tools"};
    FetchedPullRequests fetched{{makePullRequest(1), draft(2)}, {}, Truncation{5, 2}};
    const auto result = refreshResult(std::move(fetched), startWith(settings));
    EXPECT_THAT(numbers(result.list.rows), ElementsAre(1));
    EXPECT_THAT(*result.pullRequests, ElementsAre(makePullRequest(1), draft(2)));
    EXPECT_EQ(result.truncation, (Truncation{5, 2}));
    EXPECT_THAT(result.baseline.ids, ElementsAre(makePullRequest(1).id));
    EXPECT_THAT(result.baseline.scope.repositories, ElementsAre("octo/tools"));
    EXPECT_EQ(result.baseline.scope.account, "octo");
}

TEST(RefreshResults, keepEverythingAndWhatItWasFetchedUnder)
{
    RepositorySummary tools;
    tools.fullName = "octo/tools";
    const auto result =
        refreshResult({{makePullRequest(1), draft(2)}, {tools}, {}}, startWith(openOnesOfTools()));
    EXPECT_THAT(result.snapshot.pullRequests, ElementsAre(makePullRequest(1), draft(2)));
    EXPECT_THAT(result.snapshot.repositories, ElementsAre(tools));
    EXPECT_EQ(result.snapshot.account, "octo");
    EXPECT_EQ(result.snapshot.reviewerScope, ReviewerScope::myself);
    EXPECT_THAT(result.snapshot.repositoryScope, Optional(ElementsAre("octo/tools")));
    EXPECT_THAT(result.snapshot.reviewFilters, Optional(ElementsAre("Approved")));
    EXPECT_THAT(result.snapshot.states, Optional(ElementsAre(PullRequestState::open)));
}

TEST(RefreshResults, areMadeReadyForOtherSettings)
{
    auto settings = openOnesOfTools();
    settings.reviewFilters.clear();
    auto result = refreshResult({{makePullRequest(1), draft(2)}, {}, {}}, startWith(settings));
    settings.statuses = {StatusFilter::draft};
    result = refreshResult(std::move(result), startWith(settings));
    EXPECT_THAT(numbers(result.list.rows), ElementsAre(2));
    EXPECT_THAT(result.baseline.ids, ElementsAre(draft(2).id));
    EXPECT_THAT(result.baseline.scope.statuses, ElementsAre(StatusFilter::draft));
    EXPECT_THAT(result.snapshot.pullRequests, ElementsAre(makePullRequest(1), draft(2)));
    settings.statuses = {};
    result = refreshResult(std::move(result), startWith(settings));
    EXPECT_THAT(result.list.rows, IsEmpty());
    EXPECT_THAT(result.snapshot.states, Optional(IsEmpty()));
}

}  // namespace
