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

/// A pull request that has come to wait for the user, or to be ready to be merged.
struct TurnMove {
    PullRequestKit::PullRequest pullRequest;
    PullRequestKit::Turn turn;
    std::string head;  ///< Its head commit; empty when it is not known.

    bool operator==(const TurnMove&) const = default;
};

/// What a refresh found, as far as turns are concerned.
struct RefreshedTurns {
    const std::vector<PullRequestKit::PullRequestRow>& rows;  ///< Those in sight.
    TurnSources sources;
    std::string scope;  ///< What `scopeText` says of what the user is looking at.
    PullRequestKit::Date now;
    bool isFirst = false;  ///< Of this run of the program.
    /// Of these the user is told in another way.
    std::unordered_set<PullRequestKit::PullRequestID> toldOtherwise;
    /// These are out of sight because the user does not want to hear of them: they are as they
    /// were.
    std::vector<PullRequestKit::PullRequestID> muted = {};
};

/// Whose turn it was at the last refresh, and what the user was told of it. A value.
struct KnownTurns {
    /// A pull request that was not listed for this long is forgotten.
    static constexpr std::chrono::days memory{90};

    struct Entry {
        PullRequestKit::PullRequestID id;
        PullRequestKit::Date listedAt{};             ///< The last refresh that listed it.
        std::optional<PullRequestKit::Whose> whose;  ///< Nothing while it was never certain.
        /// The head commit at which the user was told, empty when it was not known; nothing when
        /// nobody was told.
        std::optional<std::string> toldHead;

        bool operator==(const Entry&) const = default;
    };

    std::string scope;  ///< What the user was looking at; empty: there is nothing to compare with.
    PullRequestKit::Date updatedAt{};  ///< The last refresh that this knows of.
    std::vector<Entry> entries;        ///< One to a pull request.

    /// Takes over what a refresh found, and yields what has moved to the user's turn or to be ready
    /// since the last one: not what was there already when the program started or the scope became
    /// another one, nor what the user was told of at the same head. These stay where they were
    /// until they are settled, so that the next refresh yields them again.
    std::vector<TurnMove> update(const RefreshedTurns& refreshed);

    /// The user is being told.
    void settle(const TurnMove& move);

    /// Nobody is told at the moment. The next refresh is the first to compare with; what was told
    /// is remembered. Whether anything changed.
    bool rest();

    bool operator==(const KnownTurns&) const = default;
};

/// The scope in a form that can be kept and compared.
std::string scopeText(const NotificationScope& scope);

}  // namespace Tarnwick
