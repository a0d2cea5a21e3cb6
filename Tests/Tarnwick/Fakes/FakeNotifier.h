#pragma once

#include "Tarnwick/Desktop/PullRequestNotifying.h"

#include <QFuture>

#include <optional>
#include <string>
#include <vector>

namespace TestSupport {

/// A notifier that remembers what it was to show. With an error set, whatever it is asked throws
/// it.
class FakeNotifier final : public Tarnwick::PullRequestNotifying {
public:
    QCoro::Task<Tarnwick::NotificationAuthorization> authorization() override;
    QCoro::Task<bool> requestAuthorization() override;
    QCoro::Task<> notifyUnblocked(PullRequestKit::PullRequest pullRequest) override;
    QCoro::Task<> notifyNew(PullRequestKit::PullRequest pullRequest) override;
    QCoro::Task<> notifyTurn(PullRequestKit::PullRequest pullRequest, std::string reason) override;

    bool isGranted = true;
    std::string error;
    /// What requests for permission and deliveries wait for, when it is set.
    std::optional<QFuture<void>> gate;

    int permissionRequests = 0;
    std::vector<std::string> shown;  ///< "new 7", "unblocked 8", "turn 9: Your review", …

private:
    QCoro::Task<> answer();
};

}  // namespace TestSupport
