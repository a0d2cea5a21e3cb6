#pragma once

#include "GitHubProvider/Clocks.h"
#include "GitHubProvider/Gh.h"
#include "PullRequestKit/AuthenticationStatus.h"

#include <optional>
#include <stop_token>
#include <string>
#include <string_view>

namespace GitHub {

/// The login that a `gh auth status` names: the word after the first "account ", in any letter
/// case. Requires: UTF-8. Safe from any thread.
std::optional<std::string> accountName(std::string_view text);

/// Who is signed in on this host. A `gh` before 2.57 does not know `--active`; it is asked again
/// without. Where the login fails, one more question tells whether GitHub is out of reach or the
/// account's limit used up; `clock` judges when that ends. Blocks; call on a worker thread. Never
/// throws: every problem is a status.
PullRequestKit::AuthenticationStatus authenticationStatus(
    const Gh& gh, const std::string& host, const WallClock& clock, std::stop_token stopToken);

}  // namespace GitHub
