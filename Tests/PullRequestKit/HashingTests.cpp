#include "PullRequestKit/PullRequest.h"
#include "PullRequestKit/PullRequestRow.h"
#include "PullRequestKit/RepositorySummary.h"
#include "Support/PullRequests.h"

#include <functional>
#include <set>

#include <rapidcheck/gtest.h>

namespace {

using namespace TestSupport;

template<typename Record>
using Changes = std::vector<std::function<void(Record&)>>;

/// How many different hashes the record and its changed copies have. Chance could make two equal,
/// but then it does so in every run: the hash has no seed.
template<typename Record>
std::size_t differentHashes(const Record& record, const Changes<Record>& changes)
{
    std::set<std::size_t> hashes{std::hash<Record>{}(record)};
    for (const auto& change : changes) {
        Record changed = record;
        change(changed);
        EXPECT_NE(changed, record);
        hashes.insert(std::hash<Record>{}(changed));
    }
    return hashes.size();
}

TEST(Hashing, coversEveryFieldOfAPullRequest)
{
    const Changes<PullRequest> changes{
        [](PullRequest& changed) { changed.id.provider += "x"; },
        [](PullRequest& changed) { changed.id.host += "x"; },
        [](PullRequest& changed) { changed.id.repository += "x"; },
        [](PullRequest& changed) { changed.id.number += 1; },
        [](PullRequest& changed) { changed.title += "x"; },
        [](PullRequest& changed) { changed.url.text += "x"; },
        [](PullRequest& changed) { changed.author += "x"; },
        [](PullRequest& changed) { changed.createdAt.reset(); },
        [](PullRequest& changed) { changed.updatedAt += std::chrono::seconds{1}; },
        [](PullRequest& changed) { changed.state = PullRequestState::merged; },
        [](PullRequest& changed) { changed.isDraft = true; },
        [](PullRequest& changed) { changed.mergeability = PullRequestMergeability::unknown; },
        [](PullRequest& changed) { changed.head.repository += "x"; },
        [](PullRequest& changed) { changed.head.name += "x"; },
        [](PullRequest& changed) { changed.base.repository += "x"; },
        [](PullRequest& changed) { changed.base.name += "x"; },
        [](PullRequest& changed) { changed.reviewState = ReviewState::approved; },
        [](PullRequest& changed) { changed.reviewActivity.hasApproval = true; },
        [](PullRequest& changed) { changed.reviewActivity.hasChangesRequested = true; },
        [](PullRequest& changed) { changed.reviewActivity.hasCommentedReview = true; },
        [](PullRequest& changed) { changed.reviewActivity.hasSubmittedReview = true; },
        [](PullRequest& changed) { changed.reviews.completed = 1; },
        [](PullRequest& changed) { changed.reviews.total = 1; },
        [](PullRequest& changed) { changed.reviews.failed = 1; },
        [](PullRequest& changed) { changed.requiredApprovingReviewCount = 0; },
        [](PullRequest& changed) { changed.requiredApprovingReviewCount = 1; },
        [](PullRequest& changed) { changed.checks.completed = 1; },
        [](PullRequest& changed) { changed.checks.total = 1; },
        [](PullRequest& changed) { changed.checks.failed = 1; },
    };
    EXPECT_EQ(differentHashes(makePullRequest(1), changes), changes.size() + 1);
}

TEST(Hashing, coversEveryFieldOfARepositorySummary)
{
    const Changes<RepositorySummary> changes{
        [](RepositorySummary& changed) { changed.fullName += "x"; },
        [](RepositorySummary& changed) { changed.visibility = "public"; },
        [](RepositorySummary& changed) { changed.language = "public"; },
        [](RepositorySummary& changed) { changed.defaultBranch = "public"; },
        [](RepositorySummary& changed) { changed.isArchived = true; },
    };
    const RepositorySummary summary{"octo/tools", {}, {}, {}, false};
    EXPECT_EQ(differentHashes(summary, changes), changes.size() + 1);
}

TEST(Hashing, coversEveryFieldOfARow)
{
    const Changes<PullRequestRow> changes{
        [](PullRequestRow& changed) { changed.pullRequest.title += "x"; },
        [](PullRequestRow& changed) { changed.depth = 1; },
        [](PullRequestRow& changed) { changed.hasChildren = true; },
        [](PullRequestRow& changed) { changed.warning = "Ambiguous base branch"; },
    };
    EXPECT_EQ(differentHashes(PullRequestRow{}, changes), changes.size() + 1);
}

TEST(Hashing, tellsHeadFromBase)
{
    const auto forth = makePullRequest(1, "a", "b");
    const auto back = makePullRequest(1, "b", "a");
    EXPECT_NE(std::hash<PullRequest>{}(forth), std::hash<PullRequest>{}(back));
}

RC_GTEST_PROP(HashingProperties, isEqualForEqualValues, (const PullRequest& pullRequest))
{
    const PullRequest copy = pullRequest;
    RC_ASSERT(std::hash<PullRequest>{}(copy) == std::hash<PullRequest>{}(pullRequest));
    RC_ASSERT(std::hash<PullRequestID>{}(copy.id) == std::hash<PullRequestID>{}(pullRequest.id));
}

}  // namespace
