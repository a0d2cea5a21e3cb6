#include "TarnwickDirect/CommandLine/ListCommand.h"

#include "Tarnwick/Async/RunUntilDone.h"
#include "Tarnwick/Model/SettingsKeys.h"
#include "Tarnwick/Persistence/IniDefaultsStore.h"
#include "Tarnwick/Persistence/IniValue.h"
#include "Tarnwick/StandardCollaborators.h"
#include "TarnwickDirect/CommandLine/ListJson.h"
#include "TarnwickDirect/CommandLine/ListText.h"
#include "TarnwickDirect/CommandLine/ProgressLine.h"
#include "TarnwickDirect/CommandLine/StandardOutput.h"
#include "TarnwickDirect/Environment.h"

#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include <unistd.h>

namespace TarnwickDirect {

using Tarnwick::MenuState;
using Tarnwick::PullRequestMenuModel;

namespace {

/// The user's settings and cache. A list for other reviewers is not stored.
PullRequestMenuModel::Collaborators collaborators(const ListPullRequests& command)
{
    auto parts = Tarnwick::standardCollaborators(environment());
    Tarnwick::IniDefaultsStore::Values forOnce;
    if (command.byTurn) {
        const auto name = PullRequestKit::nameOf(Tarnwick::Arrangement::byWhoseTurn);
        forOnce.emplace(Tarnwick::SettingsKeys::arrangement, Tarnwick::IniValue::encodeText(name));
    }
    if (command.reviewers) {
        const auto name = PullRequestKit::nameOf(*command.reviewers);
        forOnce.emplace(Tarnwick::SettingsKeys::reviewers, Tarnwick::IniValue::encodeText(name));
        parts.keepsList = false;
    }
    if (!forOnce.empty()) {
        parts.defaults = std::make_shared<Tarnwick::IniDefaultsStore>(
            Tarnwick::IniDefaultsStore::defaultFile(), std::move(forOnce));
    }
    return parts;
}

bool isLoaded(const PullRequestMenuModel& model)
{
    return model.state().kind == MenuState::Kind::loaded && !model.refreshError();
}

/// Refreshes once and reports the progress. A signal stops it.
void refreshOnce(PullRequestMenuModel& model, const SignalHandler& signalHandler)
{
    ProgressLine progress;
    const auto showProgress = [&] {
        progress.show(
            model.state().kind == MenuState::Kind::checkingAuthentication
                ? "Checking GitHub CLI authentication…"
                : "Loading pull requests…");
    };
    const QObject context;
    QObject::connect(&model, &PullRequestMenuModel::stateChanged, &context, showProgress);
    QObject::connect(&signalHandler, &SignalHandler::interrupted, &context, [&] { model.stop(); });
    showProgress();
    Tarnwick::runUntilDone(model.refresh());
    const bool isByTurn = model.settings().arrangement == Tarnwick::Arrangement::byWhoseTurn;
    if (isByTurn && isLoaded(model)) {
        Tarnwick::runUntilDone(model.askForFacts());
    }
}

void explain(const PullRequestMenuModel& model)
{
    const MenuState& state = model.state();
    if (const auto& error = model.refreshError()) {
        std::cerr << message(*error) << '\n';
    }
    if (!state.message.empty()) {
        std::cerr << message(state.message) << '\n';
    }
    if (state.kind == MenuState::Kind::signedOut) {
        std::cerr << "Run `gh auth login`, then try again.\n";
    }
    const bool isShown =
        state.kind == MenuState::Kind::loaded || state.kind == MenuState::Kind::idle;
    if (!isShown || !model.rows().empty()) {
        return;
    }
    if (model.settings().selectedRepositories.empty()) {
        std::cerr << "No repositories are selected. List them with \"tarnwick repositories\"; "
                     "select with \"tarnwick repositories select NAME…\" or \"… select --all\".\n";
    } else if (!model.lastRefreshed()) {
        std::cerr << "No list has been saved yet. Run \"tarnwick list\" first.\n";
    } else {
        std::cerr << "No pull requests involving you were found.";
        if (model.list().hidden().total() > 0) {
            std::cerr << ' ' << Tarnwick::hiddenSentence(model.list().hidden());
        }
        std::cerr << '\n';
    }
}

std::string text(const PullRequestMenuModel& model)
{
    const auto isVisited = [&](const PullRequestKit::PullRequest& pullRequest) {
        return model.visits().isVisited(pullRequest);
    };
    return listText(*model.list().arranged(), isVisited, terminalTraits(STDOUT_FILENO));
}

}  // namespace

int listPullRequests(const ListPullRequests& command, const SignalHandler& signalHandler)
{
    PullRequestMenuModel model(collaborators(command));
    if (!command.isCached) {
        refreshOnce(model, signalHandler);
    }
    if (signalHandler.signal()) {
        return 1;
    }
    StandardOutput output;
    if (command.asJson) {
        writeListJson(output.stream(), model, *model.list().arranged());
    } else {
        output.stream() << text(model);
    }
    if (const int status = output.finish(); status != 0) {
        return status;
    }
    if (!command.asJson) {
        explain(model);
    }
    return command.isCached || isLoaded(model) ? 0 : 1;
}

}  // namespace TarnwickDirect
