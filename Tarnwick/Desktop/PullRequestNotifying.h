#pragma once

#include "PullRequestKit/PullRequest.h"

#include <QCoro/QCoroTask>

#include <string>

namespace Tarnwick {

enum class NotificationAuthorization {
    authorized,
    denied,
    notDetermined,
};

/// Shows notifications; the caller decides which. Never blocks. Main thread only.
class PullRequestNotifying {
public:
    PullRequestNotifying() = default;
    PullRequestNotifying(const PullRequestNotifying&) = delete;
    PullRequestNotifying& operator=(const PullRequestNotifying&) = delete;
    virtual ~PullRequestNotifying() = default;

    virtual QCoro::Task<NotificationAuthorization> authorization() = 0;

    /// Requests permission; false if denied. Throws `std::exception` with a message for the user.
    virtual QCoro::Task<bool> requestAuthorization() = 0;

    /// Throws `std::exception` with a message for the user when it cannot be delivered.
    virtual QCoro::Task<> notifyUnblocked(PullRequestKit::PullRequest pullRequest) = 0;

    /// Throws like `notifyUnblocked`.
    virtual QCoro::Task<> notifyNew(PullRequestKit::PullRequest pullRequest) = 0;

    /// `reason` is such as "Your review". Throws like `notifyUnblocked`.
    virtual QCoro::Task<> notifyTurn(
        PullRequestKit::PullRequest pullRequest, std::string reason) = 0;
};

}  // namespace Tarnwick
