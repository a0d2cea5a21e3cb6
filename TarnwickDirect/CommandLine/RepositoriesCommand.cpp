#include "TarnwickDirect/CommandLine/RepositoriesCommand.h"

#include "PullRequestKit/Json/Writing.h"
#include "Tarnwick/Async/RunUntilDone.h"
#include "Tarnwick/Async/Worker.h"
#include "Tarnwick/StandardCollaborators.h"
#include "TarnwickDirect/CommandLine/ProgressLine.h"
#include "TarnwickDirect/CommandLine/RepositoriesText.h"
#include "TarnwickDirect/CommandLine/StandardOutput.h"
#include "TarnwickDirect/CommandLine/Terminal.h"
#include "TarnwickDirect/Environment.h"

#include <algorithm>
#include <iostream>
#include <set>

#include <unistd.h>

namespace TarnwickDirect {

using namespace PullRequestKit;
using Tarnwick::onWorker;

namespace {

using Repositories = std::vector<RepositorySummary>;

/// Blocks. Throws `ProviderError` with advice for the user when `gh` is missing or not signed in.
Repositories askForRepositories(const PullRequestProvider& provider, std::stop_token stopToken)
{
    const AuthenticationStatus status = provider.authenticationStatus(stopToken);
    if (const auto* const signedOut = std::get_if<NotAuthenticated>(&status)) {
        throw ProviderError(signedOut->message + "\nRun `gh auth login`, then try again.");
    }
    if (const auto* const unavailable = std::get_if<Unavailable>(&status)) {
        throw ProviderError(unavailable->message);
    }
    return provider.repositories(stopToken);
}

/// Fetches the repositories while running the event loop. Nothing after a reported error or a
/// signal.
std::optional<Repositories> fetchRepositories(
    const std::shared_ptr<const PullRequestProvider>& provider, const SignalHandler& signalHandler)
{
    std::stop_source stopSource;
    const QObject context;
    QObject::connect(
        &signalHandler, &SignalHandler::interrupted, &context, [&] { stopSource.request_stop(); });
    ProgressLine progress;
    progress.show("Loading repositories…");
    try {
        auto asking = onWorker([provider, stopToken = stopSource.get_token()] {
            return askForRepositories(*provider, stopToken);
        });
        auto repositories = Tarnwick::runUntilDone(std::move(asking));
        return signalHandler.signal() ? std::nullopt : std::optional(std::move(repositories));
    } catch (const std::exception& error) {
        progress.clear();
        if (!signalHandler.signal()) {
            std::cerr << message(error.what()) << '\n';
        }
        return std::nullopt;
    }
}

std::string repositoriesJson(
    const Repositories& repositories, const std::set<std::string>& selected)
{
    boost::json::array list;
    for (const RepositorySummary& repository : repositories) {
        boost::json::object object = Json::writeObject(repository);
        object["isSelected"] = selected.contains(repository.fullName);
        list.push_back(std::move(object));
    }
    boost::json::object document;
    document["repositories"] = std::move(list);
    return boost::json::serialize(document) + "\n";
}

std::set<std::string> namesOf(const Repositories& repositories)
{
    std::set<std::string> names;
    for (const RepositorySummary& repository : repositories) {
        names.insert(repository.fullName);
    }
    return names;
}

std::optional<std::string> firstUnknown(
    const std::vector<std::string>& names, const std::set<std::string>& known)
{
    const auto unknown =
        std::ranges::find_if(names, [&](const std::string& name) { return !known.contains(name); });
    return unknown == names.end() ? std::nullopt : std::optional(*unknown);
}

}  // namespace

int listRepositories(const ListRepositories& command, const SignalHandler& signalHandler)
{
    const auto parts = Tarnwick::standardCollaborators(environment());
    const auto repositories = fetchRepositories(parts.provider, signalHandler);
    if (!repositories) {
        return 1;
    }
    const auto selected = Tarnwick::SettingsStore(*parts.defaults).load().selectedRepositories;
    StandardOutput output;
    output.stream()
        << (command.asJson
                ? repositoriesJson(*repositories, selected)
                : repositoriesText(*repositories, selected, terminalTraits(STDOUT_FILENO)));
    return output.finish();
}

int changeSelection(const ChangeSelection& command, const SignalHandler& signalHandler)
{
    const auto parts = Tarnwick::standardCollaborators(environment());
    const auto repositories = fetchRepositories(parts.provider, signalHandler);
    if (!repositories) {
        return 1;
    }
    const std::set<std::string> known = namesOf(*repositories);
    if (const auto unknown = firstUnknown(command.names, known)) {
        std::cerr << "GitHub lists no repository named " << singleLine(*unknown)
                  << " for your account; the selection is unchanged.\n";
        return 1;
    }
    Tarnwick::SettingsStore store(*parts.defaults);
    if (command.all) {
        store.setSelectedRepositories(command.select ? known : std::set<std::string>());
    } else {
        store.selectRepositories(command.names, command.select);
    }
    if (const auto problem = parts.defaults->problem()) {
        std::cerr << *problem << '\n';
        return 1;
    }
    return 0;
}

}  // namespace TarnwickDirect
