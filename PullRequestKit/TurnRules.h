#pragma once

#include "PullRequestKit/PullRequest.h"
#include "PullRequestKit/PullRequestDetails.h"
#include "PullRequestKit/PullRequestFacts.h"
#include "PullRequestKit/Turn.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace PullRequestKit {

/// Whose move the pull request waits for, as the user with this login sees it. Details and facts
/// are null where they are not known: then the rules that need them do not hold. An empty login is
/// an unknown one, to which everything is the others' turn, without a reason. `basedOn` is the
/// number of the listed pull request whose head branch is the base of this one. Logins compare
/// without letter case. Safe from any thread.
Turn turnOf(
    const PullRequest& pullRequest,
    const PullRequestDetails* details,
    const PullRequestFacts* facts,
    std::string_view login,
    std::optional<std::int64_t> basedOn = std::nullopt);

/// Whether the two texts name the same account.
bool isSameLogin(std::string_view one, std::string_view other);

}  // namespace PullRequestKit
