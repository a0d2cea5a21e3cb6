#include "PullRequestKit/UniquePullRequests.h"

#include "Support/Mapped.h"
#include "Support/PullRequests.h"

#include <algorithm>

#include <rapidcheck/gtest.h>

namespace {

using namespace TestSupport;

PullRequest version(std::int64_t number, const char* updated, std::string title)
{
    PullRequest pullRequest = makePullRequest(number);
    pullRequest.updatedAt = date(updated);
    pullRequest.title = std::move(title);
    return pullRequest;
}

std::vector<std::string> titles(const std::vector<PullRequest>& pullRequests)
{
    return mapped(uniquePullRequests(pullRequests), &PullRequest::title);
}

TEST(UniquePullRequests, yieldsNothingForNothing)
{
    EXPECT_THAT(uniquePullRequests({}), IsEmpty());
}

TEST(UniquePullRequests, keepsTheLaterVersionAtTheFirstPlace)
{
    const auto older = version(1, "2024-05-01T00:00:00Z", "older");
    const auto newer = version(1, "2024-05-02T00:00:00Z", "newer");
    const auto other = version(2, "2024-05-03T00:00:00Z", "other");
    EXPECT_THAT(titles({older, other, newer}), ElementsAre("newer", "other"));
    EXPECT_THAT(titles({newer, other, older}), ElementsAre("newer", "other"));
}

TEST(UniquePullRequests, keepsTheFirstOfVersionsUpdatedAtTheSameTime)
{
    const auto first = version(1, "2024-05-01T00:00:00Z", "first");
    const auto second = version(1, "2024-05-01T00:00:00Z", "second");
    EXPECT_THAT(titles({first, second}), ElementsAre("first"));
    EXPECT_THAT(titles({second, first}), ElementsAre("second"));
}

TEST(UniquePullRequests, tellsIdentitiesApartByEveryField)
{
    const PullRequest pullRequest = makePullRequest(1);
    std::vector<PullRequest> list(5, pullRequest);
    list[1].id.provider = "other";
    list[2].id.host = "other";
    list[3].id.repository = "other";
    list[4].id.number = 2;
    EXPECT_EQ(uniquePullRequests(list), list);
}

RC_GTEST_PROP(UniquePullRequestsProperties, keepsTheFirstOfTheLatestVersionsInOrder, ())
{
    auto list = *rc::gen::container<std::vector<PullRequest>>(crowdedPullRequest());
    for (std::size_t place = 0; place < list.size(); ++place) {
        list[place].title = std::to_string(place);
    }
    std::vector<PullRequest> expected;
    for (const PullRequest& candidate : list) {
        const auto known = std::ranges::find(expected, candidate.id, &PullRequest::id);
        if (known == expected.end()) {
            expected.push_back(candidate);
        } else if (known->updatedAt < candidate.updatedAt) {
            *known = candidate;
        }
    }
    RC_ASSERT(uniquePullRequests(list) == expected);
    RC_ASSERT(uniquePullRequests(expected) == expected);
}

}  // namespace
