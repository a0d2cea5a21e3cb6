#include "Tarnwick/Model/RefreshResult.h"

#include "Tarnwick/Model/RowFilter.h"

#include <utility>

namespace Tarnwick {

using namespace PullRequestKit;

namespace {

std::set<std::string> reviewFilterTexts(const std::set<ReviewFilter>& filters)
{
    std::set<std::string> texts;
    for (const ReviewFilter filter : filters) {
        texts.emplace(nameOf(filter));
    }
    return texts;
}

/// Drafts are open too: any status passes open pull requests only.
std::set<PullRequestState> statesLetThrough(const std::set<StatusFilter>& statuses)
{
    return statuses.empty() ? std::set<PullRequestState>{}
                            : std::set<PullRequestState>{PullRequestState::open};
}

}  // namespace

RefreshResult refreshResult(FetchedPullRequests fetched, const RefreshStart& start)
{
    RefreshResult result;
    result.snapshot.pullRequests = fetched.pullRequests;
    result.snapshot.repositories = std::move(fetched.repositories);
    result.pullRequests =
        std::make_shared<const std::vector<PullRequest>>(std::move(fetched.pullRequests));
    result.details = std::make_shared<const DetailsByID>(std::move(fetched.details));
    result.truncation = fetched.truncation;
    return refreshResult(std::move(result), start);
}

RefreshResult refreshResult(RefreshResult result, const RefreshStart& start)
{
    const Settings& settings = *start.settings;
    FilteredRows list = filteredRows(*result.pullRequests, settings);
    const FactsByID noFacts;
    const std::string login = start.account.value_or("");
    result.list = arranged(
        settings.arrangement,
        std::move(list.rows),
        {*result.pullRequests, *result.details, start.facts ? *start.facts : noFacts, login});
    result.hidden = list.hidden;
    result.baseline =
        makeBaseline(notificationScope(start.account, settings), result.list.rows, {});
    CachedPullRequestSnapshot& snapshot = result.snapshot;
    snapshot.account = start.account;
    snapshot.reviewerScope = reviewerScopeOf(settings.reviewerFilter);
    snapshot.repositoryScope = settings.selectedRepositories;
    snapshot.reviewFilters = reviewFilterTexts(settings.reviewFilters);
    snapshot.states = statesLetThrough(settings.statuses);
    return result;
}

}  // namespace Tarnwick
