#pragma once

#include "Tarnwick/Desktop/PullRequestNotifying.h"

#include <QPromise>

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

    /// From now on requests for permission and deliveries wait until `release`.
    void hold();
    void release();

    bool isGranted = true;
    std::string error;

    int permissionRequests = 0;
    std::vector<std::string> shown;  ///< "new 7", "unblocked 8", "turn 9: Your review", …

private:
    QCoro::Task<> answer();

    std::optional<QPromise<void>> _held;
};

}  // namespace TestSupport
