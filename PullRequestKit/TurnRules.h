#pragma once

#include "PullRequestKit/PullRequest.h"
#include "PullRequestKit/PullRequestDetails.h"
#include "PullRequestKit/PullRequestFacts.h"
#include "PullRequestKit/Turn.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace PullRequestKit {

/// Who has to act next, from the point of view of the user with this login. Details and facts may
/// be null; rules that need them then do not apply. With an empty login it is always
/// `Whose::others` without a reason. `basedOn` is the number of the listed pull request whose head
/// is the base of this one. Safe from any thread.
Turn turnOf(
    const PullRequest& pullRequest,
    const PullRequestDetails* details,
    const PullRequestFacts* facts,
    std::string_view login,
    std::optional<std::int64_t> basedOn = std::nullopt);

/// Compares logins, ignoring letter case.
bool isSameLogin(std::string_view one, std::string_view other);

}  // namespace PullRequestKit
