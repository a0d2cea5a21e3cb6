#include "Tarnwick/StandardCollaborators.h"

#include "GitHubProvider/Gh.h"
#include "GitHubProvider/GitHubProvider.h"
#include "GitHubProvider/SystemLog.h"
#include "Tarnwick/Async/SystemClock.h"
#include "Tarnwick/Desktop/CommandRunners.h"
#include "Tarnwick/Persistence/IniDefaultsStore.h"
#include "Tarnwick/Persistence/SearchMemoryFile.h"

#include <chrono>
#include <stdexcept>
#include <utility>

namespace Tarnwick {
namespace {

using PullRequestKit::PullRequest;

/// Used without a desktop: always off, and switching it on fails.
class AbsentLoginItem final : public LoginItem {
public:
    bool isEnabled() const override { return false; }

    void registerItem() override
    {
        throw std::runtime_error("There is no desktop session that could start the program.");
    }

    void unregisterItem() override {}
};

/// Used on a terminal. Grants permission, so that the notification settings stay.
class SilentNotifier final : public PullRequestNotifying {
public:
    QCoro::Task<NotificationAuthorization> authorization() override
    {
        co_return NotificationAuthorization::authorized;
    }

    QCoro::Task<bool> requestAuthorization() override { co_return true; }

    QCoro::Task<> notifyUnblocked(PullRequest /*pullRequest*/) override { co_return; }

    QCoro::Task<> notifyNew(PullRequest /*pullRequest*/) override { co_return; }

    QCoro::Task<> notifyTurn(PullRequest /*pullRequest*/, std::string /*reason*/) override
    {
        co_return;
    }
};

}  // namespace

PullRequestMenuModel::Collaborators standardCollaborators(
    const std::map<std::string, std::string>& environment, std::shared_ptr<Preload> preload)
{
    return {
        .provider = std::make_shared<GitHub::GitHubProvider>(
            GitHub::publicHost,
            [environment] { return GitHub::findGH(environment); },
            toolRunner(),
            GitHub::systemLog(),
            std::chrono::system_clock::now,
            std::chrono::steady_clock::now,
            std::make_shared<SearchMemoryFile>(
                SearchMemoryFile::beside(PullRequestDiskCache::defaultFile()))),
        .defaults = preload ? preload->defaults() : std::make_shared<IniDefaultsStore>(),
        .cache = PullRequestDiskCache{},
        .notifier = std::make_shared<SilentNotifier>(),
        .loginItem = std::make_shared<AbsentLoginItem>(),
        .clock = std::make_shared<SystemClock>(),
        .navigation = std::make_shared<ExternalNavigation>(
            ExternalNavigation::desktop(environment, [](PanelSearch /*search*/) {})),
        .preload = std::move(preload)};
}

}  // namespace Tarnwick
