#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace PullRequestKit {

/// Whose move a pull request waits for, in the order of the list.
enum class Whose {
    you,
    ready,  ///< Nobody's: the user can merge it.
    teams,
    others,
};

/// What makes it so.
enum class TurnReason {
    none,
    draft,
    yourReview,
    yourReviewAgain,
    changesRequested,  ///< By `Turn::names`.
    conflicts,
    checksFailed,  ///< `Turn::names` of them.
    openThreads,   ///< `Turn::number` of them.
    noReviewers,
    readyToMerge,
    teamReview,             ///< Of the teams `Turn::names`.
    waitingFor,             ///< `Turn::names`, people first.
    waitingForPullRequest,  ///< `Turn::number`.
    checksRunning,
    mergeQueue,  ///< At place `Turn::number`; 0 when not known.
    autoMerge,
};

struct Turn {
    Whose whose = Whose::others;
    TurnReason reason = TurnReason::none;
    std::vector<std::string> names = {};  ///< Other people's texts, in the service's order.
    std::int64_t number = 0;

    bool operator==(const Turn&) const = default;
};

/// Whether the reason asks something of the user, who may act on it.
constexpr bool asksSomething(Whose whose)
{
    return whose != Whose::others;
}

}  // namespace PullRequestKit
