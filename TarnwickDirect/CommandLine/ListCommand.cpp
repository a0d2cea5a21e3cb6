#include "TarnwickDirect/CommandLine/ListCommand.h"

#include "Tarnwick/Async/RunUntilDone.h"
#include "Tarnwick/StandardCollaborators.h"
#include "TarnwickDirect/CommandLine/ListJson.h"
#include "TarnwickDirect/CommandLine/ListText.h"
#include "TarnwickDirect/CommandLine/ProgressLine.h"
#include "TarnwickDirect/CommandLine/StandardOutput.h"
#include "TarnwickDirect/Environment.h"

#include <iostream>

#include <unistd.h>

namespace TarnwickDirect {

using Tarnwick::MenuState;
using Tarnwick::PullRequestMenuModel;

namespace {

/// Makes one refresh and says meanwhile what it does. A signal stops it.
void refreshOnce(PullRequestMenuModel& model, const Interruption& interruption)
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
    QObject::connect(&interruption, &Interruption::interrupted, &context, [&] { model.stop(); });
    showProgress();
    Tarnwick::runUntilDone(model.refresh());
}

/// What there is to say beside the rows.
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
        std::cerr << "No repositories are selected. \"tarnwick repositories\" lists them, "
                     "\"tarnwick repositories select NAME…\" or \"… select --all\" selects.\n";
    } else if (!model.lastRefreshed()) {
        std::cerr << "Nothing is known yet. \"tarnwick list\" asks GitHub.\n";
    } else {
        std::cerr << "No pull requests involving you were found.";
        if (model.hidden().total() > 0) {
            std::cerr << ' ' << Tarnwick::hiddenSentence(model.hidden());
        }
        std::cerr << '\n';
    }
}

std::string text(PullRequestMenuModel& model)
{
    const auto isVisited = [&](const PullRequestKit::PullRequest& pullRequest) {
        return model.visits().isVisited(pullRequest);
    };
    return listText(model.rows(), isVisited, terminalTraits(STDOUT_FILENO));
}

}  // namespace

int listPullRequests(const ListPullRequests& command, const Interruption& interruption)
{
    PullRequestMenuModel model(Tarnwick::standardCollaborators(environment()));
    if (!command.isCached) {
        refreshOnce(model, interruption);
    }
    if (interruption.signal()) {
        return 1;
    }
    StandardOutput output;
    if (command.asJson) {
        writeListJson(output.stream(), model);
    } else {
        output.stream() << text(model);
    }
    if (const int status = output.finish(); status != 0) {
        return status;
    }
    if (!command.asJson) {
        explain(model);
    }
    if (command.isCached) {
        return 0;
    }
    const bool isLoaded = model.state().kind == MenuState::Kind::loaded && !model.refreshError();
    return isLoaded ? 0 : 1;
}

}  // namespace TarnwickDirect
