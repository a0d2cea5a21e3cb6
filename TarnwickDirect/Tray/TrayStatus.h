#pragma once

#include "PullRequestKit/Date.h"
#include "Tarnwick/Model/MenuState.h"
#include "Tarnwick/Model/RefreshFailure.h"

#include <chrono>
#include <cstddef>
#include <optional>

namespace TarnwickDirect {

/// A list that no refresh has renewed for this long is trouble; a minute without a network is not.
constexpr std::chrono::minutes oldList{10};

/// What the tray icon tells of the list. `failure` is what kept the last refresh from renewing it,
/// until one succeeds.
struct TrayStatus {
    Tarnwick::MenuState state = {};
    std::size_t shownPullRequests = 0;
    std::optional<PullRequestKit::Date> lastRefreshed = std::nullopt;
    std::optional<Tarnwick::RefreshFailure> failure = std::nullopt;
    bool isTrouble = false;
};

/// How long it takes until the failure is trouble that the icon shows: no time where there is no
/// list or the user has to do something about `gh`, else until the list is old. Nothing without a
/// failure. A clock that was set back counts as no time since the last refresh. Safe from any
/// thread.
std::optional<std::chrono::seconds> untilTrouble(
    std::optional<Tarnwick::RefreshFailure> failure,
    std::optional<PullRequestKit::Date> lastRefreshed,
    PullRequestKit::Date now);

/// Whether a dot may say that a pull request is blocked: nothing is known of them while the user is
/// signed out or `gh` is missing.
bool knowsPullRequests(const TrayStatus& status);

}  // namespace TarnwickDirect
