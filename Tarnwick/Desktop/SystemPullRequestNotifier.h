#pragma once

#include "Tarnwick/Desktop/NotificationCentre.h"

#include <string>
#include <string_view>

namespace Tarnwick {

/// Shows notifications of pull requests through a notification server.
class SystemPullRequestNotifier final : public PullRequestNotifying {
public:
    /// Requires: `centre` is not null.
    explicit SystemPullRequestNotifier(std::shared_ptr<NotificationCentre> centre);

    /// The notification for a pull request. Its identifier contains `kind` and the time of the last
    /// update, so that each update is shown. Safe from any thread.
    static NotificationRequest request(
        const PullRequestKit::PullRequest& pullRequest,
        std::string_view kind,
        std::string_view subtitle);

    QCoro::Task<NotificationAuthorization> authorization() override;
    QCoro::Task<bool> requestAuthorization() override;
    QCoro::Task<> notifyUnblocked(PullRequestKit::PullRequest pullRequest) override;
    QCoro::Task<> notifyNew(PullRequestKit::PullRequest pullRequest) override;
    QCoro::Task<> notifyTurn(PullRequestKit::PullRequest pullRequest, std::string reason) override;

private:
    std::shared_ptr<NotificationCentre> _centre;
};

}  // namespace Tarnwick
