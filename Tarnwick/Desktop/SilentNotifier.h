#pragma once

#include "Tarnwick/Desktop/PullRequestNotifying.h"

#include <string>

namespace Tarnwick {

/// Stands in where nobody is to be notified, as on a terminal: it shows nothing and asks for
/// nothing. Permission counts as granted, so that the notification settings stay as they are.
class SilentNotifier final : public PullRequestNotifying {
public:
    QCoro::Task<NotificationAuthorization> authorization() override;
    QCoro::Task<bool> requestAuthorization() override;
    QCoro::Task<> notifyUnblocked(PullRequestKit::PullRequest pullRequest) override;
    QCoro::Task<> notifyNew(PullRequestKit::PullRequest pullRequest) override;
    QCoro::Task<> notifyTurn(PullRequestKit::PullRequest pullRequest, std::string reason) override;
};

}  // namespace Tarnwick
