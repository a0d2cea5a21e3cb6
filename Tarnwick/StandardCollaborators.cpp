#include "Tarnwick/StandardCollaborators.h"

#include "GitHubProvider/Gh.h"
#include "GitHubProvider/GitHubProvider.h"
#include "GitHubProvider/SystemLog.h"
#include "Tarnwick/Async/SystemClock.h"
#include "Tarnwick/Desktop/AbsentLoginItem.h"
#include "Tarnwick/Desktop/CommandRunners.h"
#include "Tarnwick/Desktop/SilentNotifier.h"
#include "Tarnwick/Persistence/IniDefaultsStore.h"
#include "Tarnwick/Persistence/SearchMemoryFile.h"

#include <chrono>
#include <utility>

namespace Tarnwick {
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
        .defaults = preload ? preload->defaults() : openStandardDefaults(),
        .cache = PullRequestDiskCache{},
        .notifier = std::make_shared<SilentNotifier>(),
        .loginItem = std::make_shared<AbsentLoginItem>(),
        .clock = std::make_shared<SystemClock>(),
        .navigation = std::make_shared<ExternalNavigation>(
            ExternalNavigation::desktop(environment, [](PanelSearch /*search*/) {})),
        .preload = std::move(preload)};
}

std::shared_ptr<DefaultsStore> openStandardDefaults()
{
    return std::make_shared<IniDefaultsStore>();
}

}  // namespace Tarnwick
