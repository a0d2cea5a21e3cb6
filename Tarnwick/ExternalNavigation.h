#pragma once

#include "GitHubProvider/Process/CommandRunning.h"
#include "PullRequestKit/Url.h"
#include "Tarnwick/Desktop/EditorWorktree.h"
#include "Tarnwick/Desktop/Launch.h"
#include "Tarnwick/Desktop/PanelSearch.h"
#include "Tarnwick/ExternalNavigationError.h"

#include <functional>
#include <memory>

namespace Tarnwick {

/// Opens web pages, the desktop's notification settings, and worktrees in the editor.
class ExternalNavigation {
public:
    /// The functions through which the outside is reached. All are required. All but the runners
    /// are called on the main thread.
    struct Surroundings {
        std::shared_ptr<const GitHub::CommandRunning> gitRunner;
        std::shared_ptr<const GitHub::CommandRunning> editorRunner;
        GitHub::Environment environment;
        GitHub::IsExecutable isExecutable;
        PanelDismissal dismissPanel;
        std::function<void(const Launch&)> launch;
        /// Opens a link when there is no `xdg-open`.
        std::function<void(const PullRequestKit::Url&, const std::string&)> openThroughPortal;
    };

    explicit ExternalNavigation(Surroundings surroundings);

    /// The real desktop. Does not access it yet.
    static Surroundings desktop(GitHub::Environment environment, PanelDismissal dismissPanel);

    /// Opens the URL in the browser and dismisses the panel unless it is to stay. Errors are not
    /// reported. `activationToken` may be empty. Main thread only.
    void open(
        const PullRequestKit::Url& url,
        const std::string& activationToken = {},
        PanelFate fate = PanelFate::goes) const;

    /// Whether the desktop has notification settings that can be opened. Safe from any thread.
    bool hasNotificationSettings() const;

    /// Dismisses the panel and opens the desktop's notification settings, if there are any. Returns
    /// at once. Safe from any thread.
    void openNotificationSettings() const;

    /// Opens a worktree on the branch, created if necessary, in a new window of Visual Studio Code.
    /// Ends when the editor was started. Throws `ExternalNavigationError`, `CancellationError` and
    /// what the runner throws. Main thread only. Requires: `progress` can be called.
    QCoro::Task<> openInCode(
        std::filesystem::path clone,
        std::string branch,
        ProgressSink progress,
        std::stop_token stopToken = {}) const;

private:
    std::shared_ptr<const Surroundings> _surroundings;
};

}  // namespace Tarnwick
