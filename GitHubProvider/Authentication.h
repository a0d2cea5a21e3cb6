#pragma once

#include "GitHubProvider/Clocks.h"
#include "GitHubProvider/Gh.h"
#include "PullRequestKit/AuthenticationStatus.h"

#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

namespace GitHub {

/// The login in the output of `gh auth status`: the word after the first "account ", ignoring case.
/// Requires: UTF-8. Safe from any thread.
std::optional<std::string> accountName(std::string_view text);

/// Who is signed in on this host. If `gh` rejects `--active`, as before 2.57, it is run again
/// without. After a failed login, one more request checks whether GitHub is unreachable or the rate
/// limit is used up. Never throws: every problem is a status. Blocks; call on a worker thread.
PullRequestKit::AuthenticationStatus authenticationStatus(
    const Gh& gh, const std::string& host, const WallClock& clock, std::stop_token stopToken);

}  // namespace GitHub
