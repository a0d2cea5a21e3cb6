#include "Tarnwick/Desktop/SilentNotifier.h"

namespace Tarnwick {

QCoro::Task<NotificationAuthorization> SilentNotifier::authorization()
{
    co_return NotificationAuthorization::authorized;
}

QCoro::Task<bool> SilentNotifier::requestAuthorization()
{
    co_return true;
}

QCoro::Task<> SilentNotifier::notifyUnblocked(PullRequestKit::PullRequest /*pullRequest*/)
{
    co_return;
}

QCoro::Task<> SilentNotifier::notifyNew(PullRequestKit::PullRequest /*pullRequest*/)
{
    co_return;
}

QCoro::Task<> SilentNotifier::notifyTurn(
    PullRequestKit::PullRequest /*pullRequest*/, std::string /*reason*/)
{
    co_return;
}

}  // namespace Tarnwick
