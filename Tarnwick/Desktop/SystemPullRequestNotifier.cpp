#include "Tarnwick/Desktop/SystemPullRequestNotifier.h"

#include <utility>

namespace Tarnwick {

using PullRequestKit::PullRequest;

namespace {

/// The default sound of a new message in the freedesktop.org sound theme.
constexpr const char* notificationSound = "message-new-instant";

constexpr const char* threadIdentifier = "tarnwick.pull-requests";

/// The identifier's format has a fraction.
std::string secondsText(PullRequestKit::Date date)
{
    return std::to_string(date.time_since_epoch().count()) + ".0";
}

// The tasks keep the centre alive.

QCoro::Task<NotificationAuthorization> askStatus(std::shared_ptr<NotificationCentre> centre)
{
    auto asking = centre->status();
    const NotificationServerStatus status = co_await asking;
    co_return authorizationOf(status);
}

QCoro::Task<bool> askPermission(std::shared_ptr<NotificationCentre> centre)
{
    auto asking = centre->requestAuthorization();
    const bool isGranted = co_await asking;
    co_return isGranted;
}

QCoro::Task<> deliver(std::shared_ptr<NotificationCentre> centre, NotificationRequest request)
{
    auto adding = centre->add(std::move(request));
    co_await adding;
}

}  // namespace

SystemPullRequestNotifier::SystemPullRequestNotifier(std::shared_ptr<NotificationCentre> centre)
    : _centre(std::move(centre))
{}

NotificationRequest SystemPullRequestNotifier::request(
    const PullRequest& pullRequest, std::string_view kind, std::string_view subtitle)
{
    NotificationRequest request;
    request.identifier = std::string(kind) + "-" + pullRequest.id.storageKey() + "-"
                         + secondsText(pullRequest.updatedAt);
    request.title = pullRequest.title;
    request.subtitle = subtitle;
    request.sound = notificationSound;
    request.threadIdentifier = threadIdentifier;
    request.userInfo = {{pullRequestUrlKey, pullRequest.url.text}};
    return request;
}

QCoro::Task<NotificationAuthorization> SystemPullRequestNotifier::authorization()
{
    return askStatus(_centre);
}

QCoro::Task<bool> SystemPullRequestNotifier::requestAuthorization()
{
    return askPermission(_centre);
}

QCoro::Task<> SystemPullRequestNotifier::notifyUnblocked(PullRequest pullRequest)
{
    return deliver(_centre, request(pullRequest, "unblocked", "Pull request unblocked"));
}

QCoro::Task<> SystemPullRequestNotifier::notifyNew(PullRequest pullRequest)
{
    return deliver(_centre, request(pullRequest, "new", "New pull request"));
}

QCoro::Task<> SystemPullRequestNotifier::notifyTurn(PullRequest pullRequest, std::string reason)
{
    return deliver(_centre, request(pullRequest, "turn", reason));
}

}  // namespace Tarnwick
