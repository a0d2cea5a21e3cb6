#pragma once

#include "PullRequestKit/PullRequestDetails.h"
#include "PullRequestKit/PullRequestRow.h"
#include "Tarnwick/Model/Arrangement.h"
#include "Tarnwick/Model/Fetch.h"
#include "Tarnwick/Model/HiddenCounts.h"
#include "Tarnwick/Model/NotificationDecisions.h"
#include "Tarnwick/Persistence/CachedPullRequestSnapshot.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Tarnwick {

using SharedPullRequests = std::shared_ptr<const std::vector<PullRequestKit::PullRequest>>;

/// What a refresh starts from.
struct RefreshStart {
    std::optional<std::string> account;
    std::shared_ptr<const Settings> settings;
    PullRequestKit::SharedFacts facts = nullptr;  ///< What is known so far; null is nothing.
};

/// What a refresh found, made ready for the list, the notifications and the cache.
struct RefreshResult {
    SharedPullRequests pullRequests;        ///< Not null.
    PullRequestKit::SharedDetails details;  ///< Not null.
    ArrangedRows list;                      ///< What the settings leave.
    HiddenCounts hidden;                    ///< What they hide.
    NewPullRequestBaseline baseline;        ///< Its time is still to be set.
    CachedPullRequestSnapshot snapshot;     ///< Likewise.
    std::optional<Truncation> truncation;
};

/// Takes several milliseconds for a thousand pull requests. Safe from any thread.
RefreshResult refreshResult(FetchedPullRequests fetched, const RefreshStart& start);

/// The same pull requests for other settings than those that they were made ready for.
RefreshResult refreshResult(RefreshResult result, const RefreshStart& start);

}  // namespace Tarnwick
