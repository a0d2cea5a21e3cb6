#pragma once

#include "GitHubProvider/Gh.h"
#include "PullRequestKit/AuthenticationStatus.h"

#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

namespace GitHubProvider {

/// The login that a `gh auth status` names: the word after the first "account ", in any letter
/// case. Requires: UTF-8. Safe from any thread.
std::optional<std::string> accountName(std::string_view text);

/// Who is signed in on this host. A `gh` before 2.57 does not know `--active`; it is asked again
/// without. Blocks; call on a worker thread. Never throws: every problem is a status.
PullRequestKit::AuthenticationStatus authenticationStatus(
    const Gh& gh, const std::string& host, std::stop_token stopToken);

}  // namespace GitHubProvider
