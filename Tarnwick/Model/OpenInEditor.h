#pragma once

#include "PullRequestKit/PullRequest.h"
#include "Tarnwick/ExternalNavigation.h"

#include <optional>
#include <string>
#include <string_view>

namespace Tarnwick {

/// The folder of the local clones as the user wrote it, without white space at its ends, with "~"
/// and "~NAME" replaced by home folders, and absolute; empty when nothing was written. Safe from
/// any thread.
std::filesystem::path projectFolder(const std::string& setting);

/// Opens a worktree on the pull request's head branch in the editor, and yields what went wrong as
/// a text for the user, or nothing; being stopped is nothing, too. Main thread only.
/// Requires: `navigation`, and `progress` can be called.
QCoro::Task<std::optional<std::string>> openInEditor(
    std::shared_ptr<const ExternalNavigation> navigation,
    std::string projectDirectory,
    PullRequestKit::PullRequest pullRequest,
    ProgressSink progress,
    std::stop_token stopToken);

/// Whether setting the project directory is the way out of what `openInEditor` yielded. Safe from
/// any thread.
bool asksForProjectDirectory(std::string_view problem);

}  // namespace Tarnwick
