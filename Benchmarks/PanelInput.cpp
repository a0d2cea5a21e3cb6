#include "Benchmarks/PanelInput.h"

#include "Benchmarks/Input.h"
#include "Tarnwick/Persistence/IniDefaultsStore.h"
#include "Tarnwick/StandardCollaborators.h"

#include <QCoreApplication>

#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <utility>

#include <pthread.h>

namespace Benchmarks {

using namespace PullRequestKit;
using namespace Tarnwick;

namespace {

/// Selects everything and filters nothing.
void writeSettings(
    const std::filesystem::path& file, const std::vector<RepositorySummary>& repositories)
{
    std::set<std::string> names;
    for (const RepositorySummary& repository : repositories) {
        names.insert(repository.fullName);
    }
    for (const PullRequest& pullRequest : makePullRequests(2'000)) {
        names.insert(pullRequest.id.repository);
    }
    std::ofstream text(file);
    text << "filters.repositoriesConfigured=true\nfilters.reviewers=Any\n"
            "filters.status=Draft, Open\nfilters.schemaVersion=2\nfilters.repositories=";
    const char* comma = "";
    for (const std::string& name : names) {
        text << std::exchange(comma, ", ") << name;
    }
    text << '\n';
}

}  // namespace

TurningProvider::TurningProvider(
    std::vector<PullRequests> lists, std::vector<RepositorySummary> repositories)
    : _lists(std::move(lists))
    , _repositories(std::move(repositories))
{
    pthread_getcpuclockid(pthread_self(), &_mainThread);
}

std::string_view TurningProvider::id() const
{
    return "github";
}

std::string_view TurningProvider::displayName() const
{
    return "GitHub";
}

AuthenticationStatus TurningProvider::authenticationStatus(std::stop_token /*stopToken*/) const
{
    return Authenticated{"mona"};
}

std::vector<RepositorySummary> TurningProvider::repositories(std::stop_token /*stopToken*/) const
{
    _mainThreadAtAnswer = timeOn(_mainThread).count();
    return _repositories;
}

TurningProvider::PullRequests TurningProvider::pullRequests(
    ReviewerScope /*reviewerScope*/,
    const std::set<std::string>& /*repositories*/,
    std::stop_token /*stopToken*/) const
{
    const PullRequests& list = _lists.at(_next);
    _next = (_next + 1) % _lists.size();
    return list;
}

std::vector<RepositorySummary> makeRepositories(std::size_t count)
{
    constexpr std::size_t owners = 40;
    std::vector<RepositorySummary> repositories;
    repositories.reserve(count);
    for (std::size_t number = 0; number < count; ++number) {
        repositories.push_back(
            {"organisation-" + std::to_string(number % owners) + "/service-"
                 + std::to_string(number),
             number % 3 == 0 ? "private" : "public",
             number % 2 == 0 ? "C++" : "TypeScript",
             "main",
             number % 17 == 0});
    }
    return repositories;
}

std::vector<TurningProvider::PullRequests> listBeforeAndAfter()
{
    // Results in about 1,000 open pull requests.
    constexpr std::size_t rows = 1'100;
    constexpr std::ptrdiff_t changed = 20;
    TurningProvider::PullRequests before = makePullRequests(rows + changed);
    for (PullRequest& pullRequest : before) {
        // Makes the turns differ.
        if (pullRequest.id.number % 3 == 0) {
            pullRequest.author = "mona";
        }
    }
    TurningProvider::PullRequests after = before;
    for (std::size_t place = 0; place < after.size(); place += 10) {
        after[place].updatedAt += std::chrono::hours(2);
        after[place].checks = {3, 7, 0};
    }
    before.resize(rows);
    after.erase(after.begin(), after.begin() + changed);
    return {std::move(before), std::move(after)};
}

ModelOnProvider::ModelOnProvider(std::shared_ptr<TurningProvider> provider)
{
    const std::filesystem::path folder = _folder.path().toStdString();
    auto parts = standardCollaborators({});
    const std::filesystem::path settings = folder / "settings.ini";
    writeSettings(settings, provider->repositories({}));
    parts.defaults = std::make_shared<IniDefaultsStore>(settings);
    parts.cache = PullRequestDiskCache{folder / "pull-requests.json"};
    parts.provider = std::move(provider);
    _model = std::make_unique<PullRequestMenuModel>(std::move(parts));
    refresh();
}

void ModelOnProvider::refresh()
{
    const auto refreshing = _model->refresh();
    while (!refreshing.isReady()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

}  // namespace Benchmarks
