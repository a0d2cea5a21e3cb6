#pragma once

#include "PullRequestKit/PullRequest.h"

#include <QCoro/QCoroTask>

#include <string>

namespace Tarnwick {

/// What the desktop says of the program's notifications.
enum class NotificationAuthorization {
    authorized,
    denied,
    notDetermined,
};

/// Shows notifications. Which pull requests deserve one is decided elsewhere. Main thread only;
/// nothing blocks.
class PullRequestNotifying {
public:
    PullRequestNotifying() = default;
    PullRequestNotifying(const PullRequestNotifying&) = delete;
    PullRequestNotifying& operator=(const PullRequestNotifying&) = delete;
    virtual ~PullRequestNotifying() = default;

    virtual QCoro::Task<NotificationAuthorization> authorization() = 0;

    /// Asks for permission to show alerts and play sounds; yields whether it is granted. Throws
    /// `std::exception` with a sentence for the user when it cannot be asked for.
    virtual QCoro::Task<bool> requestAuthorization() = 0;

    /// Says that the pull request became unblocked. Throws `std::exception` with a sentence for the
    /// user when it cannot be delivered.
    virtual QCoro::Task<> notifyUnblocked(PullRequestKit::PullRequest pullRequest) = 0;

    /// Says that the pull request is new. Throws as `notifyUnblocked` does.
    virtual QCoro::Task<> notifyNew(PullRequestKit::PullRequest pullRequest) = 0;

    /// Says that it is the user's turn, and why: such as "Your review". Throws as `notifyUnblocked`
    /// does.
    virtual QCoro::Task<> notifyTurn(
        PullRequestKit::PullRequest pullRequest, std::string reason) = 0;
};

}  // namespace Tarnwick
