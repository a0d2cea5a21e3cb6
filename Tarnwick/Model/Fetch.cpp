#include "Tarnwick/Model/Fetch.h"

#include "PullRequestKit/UniquePullRequests.h"

namespace Tarnwick {

FetchedPullRequests fetch(
    const PullRequestKit::PullRequestProvider& provider,
    const FetchRequest& request,
    std::stop_token stopToken)
{
    FetchedPullRequests fetched;
    fetched.pullRequests = PullRequestKit::uniquePullRequests(
        provider.pullRequests(request.reviewerScope, request.repositories, stopToken));
    fetched.repositories = provider.repositories(stopToken);
    return fetched;
}

}  // namespace Tarnwick
