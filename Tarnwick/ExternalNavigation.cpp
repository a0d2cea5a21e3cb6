#include "Tarnwick/ExternalNavigation.h"

#include "PullRequestKit/Errors.h"
#include "Tarnwick/Async/Worker.h"
#include "Tarnwick/Desktop/CodeDiscovery.h"
#include "Tarnwick/Desktop/CommandRunners.h"
#include "Tarnwick/Desktop/LinkPortal.h"
#include "Tarnwick/Desktop/NotificationSettingsPane.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QThread>

#include <cassert>
#include <utility>

namespace Tarnwick {

using GitHub::CommandResult;
using Surroundings = ExternalNavigation::Surroundings;

namespace {

/// For assertions, which a release leaves out.
[[maybe_unused]] bool isMainThread()
{
    const QCoreApplication* const application = QCoreApplication::instance();
    return application != nullptr && application->thread() == QThread::currentThread();
}

void openSettings(const Surroundings& surroundings)
{
    if (const auto pane =
            notificationSettingsPane(surroundings.environment, surroundings.isExecutable)) {
        surroundings.dismissPanel(PanelSearch::anyVisible);
        surroundings.launch(*pane);
    }
}

/// Holds the surroundings, because the caller may be gone before the editor starts.
QCoro::Task<> prepareAndOpen(
    std::shared_ptr<const Surroundings> surroundings,
    std::filesystem::path clone,
    std::string branch,
    ProgressSink progress,
    std::stop_token stopToken)
{
    const auto code = codeExecutable(surroundings->environment, surroundings->isExecutable);
    if (!code) {
        throw ExternalNavigationError("Visual Studio Code's `code` command was not found.");
    }
    auto preparing = EditorWorktree::prepare(
        std::move(clone), std::move(branch), surroundings->gitRunner, progress, stopToken);
    const std::filesystem::path worktree = co_await preparing;

    if (stopToken.stop_requested()) {
        throw PullRequestKit::CancellationError();
    }
    progress("Opening Visual Studio Code…");
    surroundings->dismissPanel(PanelSearch::focusOnly);
    const std::vector<std::string> arguments{"--new-window", worktree.string()};
    const auto runner = surroundings->editorRunner;
    auto opening = onWorker([runner, executable = *code, arguments, stopToken] {
        return runner->run(executable, arguments, stopToken);
    });
    const CommandResult opened = co_await opening;
    EditorWorktree::check(opened, "Opening Visual Studio Code");
}

}  // namespace

ExternalNavigation::ExternalNavigation(Surroundings surroundings)
    : _surroundings(std::make_shared<const Surroundings>(std::move(surroundings)))
{}

Surroundings ExternalNavigation::desktop(
    GitHub::Environment environment, PanelDismissal dismissPanel)
{
    Surroundings surroundings;
    surroundings.gitRunner = toolRunner();
    surroundings.editorRunner = editorRunner();
    surroundings.environment = std::move(environment);
    surroundings.isExecutable = GitHub::isExecutableFile;
    surroundings.dismissPanel = std::move(dismissPanel);
    surroundings.launch = [inherited = surroundings.environment](const Launch& launch) {
        launchDetached(launch, inherited);
    };
    surroundings.openThroughPortal = Tarnwick::openThroughPortal;
    return surroundings;
}

// Not `QDesktopServices`: it passes on no token, and through the portal it blocks the main thread
// (Qt 6.4).
void ExternalNavigation::open(
    const PullRequestKit::Url& url, const std::string& activationToken, PanelFate fate) const
{
    assert(isMainThread());
    if (fate == PanelFate::goes) {
        _surroundings->dismissPanel(PanelSearch::anyVisible);
    }
    const auto opener =
        GitHub::findProgram(_surroundings->environment, "xdg-open", _surroundings->isExecutable);
    if (opener) {
        _surroundings->launch({*opener, {url.text}, activationToken});
    } else {
        _surroundings->openThroughPortal(url, activationToken);
    }
}

bool ExternalNavigation::hasNotificationSettings() const
{
    return notificationSettingsPane(_surroundings->environment, _surroundings->isExecutable)
        .has_value();
}

void ExternalNavigation::openNotificationSettings() const
{
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [surroundings = _surroundings] { openSettings(*surroundings); },
        Qt::QueuedConnection);
}

QCoro::Task<> ExternalNavigation::openInCode(
    std::filesystem::path clone,
    std::string branch,
    ProgressSink progress,
    std::stop_token stopToken) const
{
    return prepareAndOpen(
        _surroundings,
        std::move(clone),
        std::move(branch),
        std::move(progress),
        std::move(stopToken));
}

}  // namespace Tarnwick
