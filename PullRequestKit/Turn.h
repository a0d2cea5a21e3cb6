#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace PullRequestKit {

/// Who has to act next on a pull request, in the order of the list.
enum class Whose {
    you,
    ready,  ///< The user can merge it.
    teams,
    others,
};

enum class TurnReason {
    none,
    draft,
    yourReview,
    yourReviewAgain,
    changesRequested,  ///< By `Turn::names`.
    conflicts,
    checksFailed,  ///< `Turn::names` are the checks.
    openThreads,   ///< `Turn::number` is their count.
    noReviewers,
    readyToMerge,
    teamReview,             ///< `Turn::names` are the teams.
    waitingFor,             ///< `Turn::names`, people first.
    waitingForPullRequest,  ///< `Turn::number` is its number.
    checksRunning,
    mergeQueue,  ///< `Turn::number` is the position; 0 when unknown.
    autoMerge,
};

struct Turn {
    Whose whose = Whose::others;
    TurnReason reason = TurnReason::none;
    std::vector<std::string> names = {};  ///< Untrusted text, in the service's order.
    std::int64_t number = 0;

    bool operator==(const Turn&) const = default;
};

/// Whether the user can act on it.
constexpr bool asksSomething(Whose whose)
{
    return whose != Whose::others;
}

}  // namespace PullRequestKit
