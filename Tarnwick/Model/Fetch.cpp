#include "Tarnwick/Model/Fetch.h"

#include "PullRequestKit/UniquePullRequests.h"

#include <utility>

namespace Tarnwick {

FetchedPullRequests fetch(
    const PullRequestKit::PullRequestProvider& provider,
    const FetchRequest& request,
    std::stop_token stopToken)
{
    auto list = provider.listPullRequests(request.reviewerScope, request.repositories, stopToken);
    FetchedPullRequests fetched;
    fetched.details = PullRequestKit::detailsByID(list.pullRequests, std::move(list.details));
    fetched.pullRequests = PullRequestKit::uniquePullRequests(std::move(list.pullRequests));
    if (list.found) {
        fetched.truncation = {*list.found, static_cast<std::int64_t>(fetched.pullRequests.size())};
    }
    fetched.repositories = provider.repositories(stopToken);
    return fetched;
}

}  // namespace Tarnwick
