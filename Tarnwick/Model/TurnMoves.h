#pragma once

#include "PullRequestKit/PullRequest.h"
#include "PullRequestKit/Turn.h"
#include "Tarnwick/Model/Arrangement.h"
#include "Tarnwick/Model/NotificationDecisions.h"

#include <chrono>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace Tarnwick {

/// A pull request that became the user's turn or ready to merge.
struct TurnMove {
    PullRequestKit::PullRequest pullRequest;
    PullRequestKit::Turn turn;
    std::string head;  ///< Its head commit; empty when unknown.

    bool operator==(const TurnMove&) const = default;
};

struct RefreshedTurns {
    const std::vector<PullRequestKit::PullRequestRow>& rows;  ///< Visible rows.
    TurnSources sources;
    std::string scope;  ///< From `scopeText`.
    PullRequestKit::Date now;
    bool isFirst = false;  ///< The first refresh of this process.
    /// Covered by another notification.
    std::unordered_set<PullRequestKit::PullRequestID> toldOtherwise;
    /// Hidden because muted; their entries are kept.
    std::vector<PullRequestKit::PullRequestID> muted = {};
};

/// The turns at the last refresh, and what the user was notified of.
struct KnownTurns {
    /// Pull requests not listed for this long are forgotten.
    static constexpr std::chrono::days memory{90};

    struct Entry {
        PullRequestKit::PullRequestID id;
        PullRequestKit::Date listedAt{};             ///< The last refresh that listed it.
        std::optional<PullRequestKit::Whose> whose;  ///< Nothing while uncertain.
        /// The head commit of the last notification, empty if unknown; nothing without one.
        std::optional<std::string> toldHead;

        bool operator==(const Entry&) const = default;
    };

    std::string scope;                 ///< Empty when there is nothing to compare with.
    PullRequestKit::Date updatedAt{};  ///< The last refresh taken into account.
    std::vector<Entry> entries;        ///< One per pull request.

    /// Applies a refresh. Returns what became the user's turn or ready since the last one, again on
    /// each refresh until `settle`. Excludes what was listed before the first refresh or a change
    /// of scope, and what was already reported at the same head.
    std::vector<TurnMove> update(const RefreshedTurns& refreshed);

    /// Call when the notification is shown.
    void settle(const TurnMove& move);

    /// Call while notifications are off: the next refresh becomes the baseline, and past
    /// notifications are remembered. Returns whether anything changed.
    bool rest();

    bool operator==(const KnownTurns&) const = default;
};

/// The scope as a text to store and compare.
std::string scopeText(const NotificationScope& scope);

}  // namespace Tarnwick
