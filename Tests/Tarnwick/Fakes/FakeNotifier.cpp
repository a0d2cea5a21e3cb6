#include "Fakes/FakeNotifier.h"

#include <QCoro/QCoroFuture>

#include <stdexcept>

namespace TestSupport {

using PullRequestKit::PullRequest;

QCoro::Task<> FakeNotifier::answer()
{
    if (_held) {
        const QFuture<void> waited = _held->future();
        co_await waited;
    }
    if (!error.empty()) {
        throw std::runtime_error(error);
    }
}

void FakeNotifier::hold()
{
    _held.emplace().start();
}

void FakeNotifier::release()
{
    _held->finish();
}

QCoro::Task<Tarnwick::NotificationAuthorization> FakeNotifier::authorization()
{
    co_return isGranted ? Tarnwick::NotificationAuthorization::authorized
                        : Tarnwick::NotificationAuthorization::denied;
}

QCoro::Task<bool> FakeNotifier::requestAuthorization()
{
    ++permissionRequests;
    auto answered = answer();
    co_await answered;
    co_return isGranted;
}

QCoro::Task<> FakeNotifier::notifyUnblocked(PullRequest pullRequest)
{
    shown.push_back("unblocked " + std::to_string(pullRequest.id.number));
    return answer();
}

QCoro::Task<> FakeNotifier::notifyNew(PullRequest pullRequest)
{
    shown.push_back("new " + std::to_string(pullRequest.id.number));
    return answer();
}

QCoro::Task<> FakeNotifier::notifyTurn(PullRequest pullRequest, std::string reason)
{
    shown.push_back("turn " + std::to_string(pullRequest.id.number) + ": " + reason);
    return answer();
}

}  // namespace TestSupport
