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

/// The inputs for preparing a fetched answer.
struct RefreshStart {
    std::optional<std::string> account;
    std::shared_ptr<const Settings> settings;
    PullRequestKit::SharedFacts facts = nullptr;  ///< Known so far; may be null.
};

/// A fetched answer, prepared for the list, the notifications and the cache.
struct RefreshResult {
    SharedPullRequests pullRequests;        ///< Not null.
    PullRequestKit::SharedDetails details;  ///< Not null.
    ArrangedRows list;                      ///< Visible rows.
    HiddenCounts hidden;
    NewPullRequestBaseline baseline;     ///< Without its time.
    CachedPullRequestSnapshot snapshot;  ///< Without its time.
    std::optional<Truncation> truncation;
};

/// Takes several milliseconds for a thousand pull requests. Safe from any thread.
RefreshResult refreshResult(FetchedPullRequests fetched, const RefreshStart& start);

/// Prepares the same pull requests for other settings.
RefreshResult refreshResult(RefreshResult result, const RefreshStart& start);

}  // namespace Tarnwick
