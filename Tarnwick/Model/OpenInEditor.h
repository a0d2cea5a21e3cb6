#pragma once

#include "PullRequestKit/PullRequest.h"
#include "Tarnwick/ExternalNavigation.h"

#include <optional>
#include <string>
#include <string_view>

namespace Tarnwick {

/// The folder of the local clones as an absolute path, with "~" and "~NAME" expanded; empty when
/// the setting is. Safe from any thread.
std::filesystem::path projectFolder(const std::string& setting);

/// Opens a worktree on the pull request's head branch in the editor. Returns an error for the user;
/// nothing on success or cancellation. Main thread only. Requires: no null arguments.
QCoro::Task<std::optional<std::string>> openInEditor(
    std::shared_ptr<const ExternalNavigation> navigation,
    std::string projectDirectory,
    PullRequestKit::PullRequest pullRequest,
    ProgressSink progress,
    std::stop_token stopToken);

/// Whether this error of `openInEditor` calls for a project directory. Safe from any thread.
bool asksForProjectDirectory(std::string_view problem);

}  // namespace Tarnwick
