#pragma once

#include "PullRequestKit/Date.h"
#include "Tarnwick/Model/MenuState.h"
#include "Tarnwick/Model/RefreshFailure.h"

#include <chrono>
#include <cstddef>
#include <optional>

namespace TarnwickDirect {

/// A list that was not refreshed for this long counts as trouble; short failures do not.
constexpr std::chrono::minutes oldList{10};

/// What the tray icon shows of the list. `failure` is set until a refresh succeeds.
struct TrayStatus {
    Tarnwick::MenuState state = {};
    std::size_t shownPullRequests = 0;
    std::optional<PullRequestKit::Date> lastRefreshed = std::nullopt;
    std::optional<Tarnwick::RefreshFailure> failure = std::nullopt;
    bool isTrouble = false;
};

/// The time until the failure becomes trouble: zero without a list or if the user has to fix `gh`,
/// else until the list is old. Nothing without a failure. If the clock was set back, the list
/// counts as just refreshed. Safe from any thread.
std::optional<std::chrono::seconds> untilTrouble(
    std::optional<Tarnwick::RefreshFailure> failure,
    std::optional<PullRequestKit::Date> lastRefreshed,
    PullRequestKit::Date now);

/// Whether the dot for blocked pull requests may be shown: not while signed out or without `gh`.
bool knowsPullRequests(const TrayStatus& status);

}  // namespace TarnwickDirect
