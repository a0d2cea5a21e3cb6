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

/// Leaving the program: a web page in the browser, the desktop's notification settings, a worktree
/// in the editor.
class ExternalNavigation {
public:
    /// What leaving touches of the world. All are required; all are called on the main thread but
    /// the runners.
    struct Surroundings {
        std::shared_ptr<const GitHub::CommandRunning> gitRunner;
        std::shared_ptr<const GitHub::CommandRunning> editorRunner;
        GitHub::Environment environment;
        GitHub::IsExecutable isExecutable;
        PanelDismissal dismissPanel;
        std::function<void(const Launch&)> launch;
        /// Opens a link where there is no `xdg-open`.
        std::function<void(const PullRequestKit::Url&, const std::string&)> openThroughPortal;
    };

    explicit ExternalNavigation(Surroundings surroundings);

    /// The desktop around this process. Constructing it asks nothing of the desktop.
    static Surroundings desktop(GitHub::Environment environment, PanelDismissal dismissPanel);

    /// Dismisses the panel, unless it is to stay, and has the desktop open the address; nobody
    /// waits for that, and nothing is reported. The token, if there is one, lets the browser come
    /// to the front. Main thread only.
    void open(
        const PullRequestKit::Url& url,
        const std::string& activationToken = {},
        PanelFate fate = PanelFate::goes) const;

    /// Whether the desktop has notification settings that can be opened. Safe from any thread.
    bool hasNotificationSettings() const;

    /// Soon dismisses the panel and opens the desktop's notification settings; nothing happens
    /// where none are found. Safe from any thread.
    void openNotificationSettings() const;

    /// Makes sure that there is a worktree on the branch and opens it in a new window of Visual
    /// Studio Code. Ends when the editor was launched. Throws `ExternalNavigationError`, what the
    /// runner throws, and `CancellationError` once `stopToken` is stopped. Main thread only.
    /// Requires: `progress` can be called.
    QCoro::Task<> openInCode(
        std::filesystem::path clone,
        std::string branch,
        ProgressSink progress,
        std::stop_token stopToken = {}) const;

private:
    std::shared_ptr<const Surroundings> _surroundings;
};

}  // namespace Tarnwick
