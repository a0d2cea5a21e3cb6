#pragma once

#include "Tarnwick/Desktop/NotificationCentre.h"

#include <string>
#include <string_view>

namespace Tarnwick {

/// Shows notifications of pull requests on the desktop.
class SystemPullRequestNotifier final : public PullRequestNotifying {
public:
    /// Requires: `centre`.
    explicit SystemPullRequestNotifier(std::shared_ptr<NotificationCentre> centre);

    /// What is shown of a pull request. `kind` is a part of the identifier, as is the time of the
    /// last change, so that each change is shown anew. Safe from any thread.
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
