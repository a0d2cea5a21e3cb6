#pragma once

#include "GitHubProvider/Process/CommandRunning.h"
#include "Tarnwick/Desktop/WorktreeListing.h"

#include <QCoro/QCoroTask>

#include <filesystem>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <string_view>

namespace Tarnwick {

/// Takes one line of progress. Called on the main thread.
using ProgressSink = std::function<void(const std::string& text)>;

}  // namespace Tarnwick

/// Git worktrees on the head branches of pull requests, in `.tarnwick-worktrees/CLONE/BRANCH`
/// beside the user's clone. They are never removed, even after a failure.
namespace Tarnwick::EditorWorktree {

/// The folder of a branch's worktree. In its name "-" replaces every "/". Safe from any thread.
std::filesystem::path worktreeDirectory(
    const std::filesystem::path& clone, const std::string& branch);

/// Throws `ExternalNavigationError` for an exit status other than 0: "ACTION failed (exit STATUS)."
/// and standard error on further lines. Safe from any thread.
void check(const GitHub::CommandResult& result, std::string_view action);

/// Fetches, then finds or creates the worktree on `branch`, and returns its folder. A missing local
/// branch is created from origin's. The commands run one after another on a worker thread. Main
/// thread only. Throws `ExternalNavigationError`, with advice if a fetch may have failed because of
/// a prompt, `CancellationError` and what the runner throws. Requires: `progress` can be called.
QCoro::Task<std::filesystem::path> prepare(
    std::filesystem::path clone,
    std::string branch,
    std::shared_ptr<const GitHub::CommandRunning> runner,
    ProgressSink progress,
    std::stop_token stopToken);

}  // namespace Tarnwick::EditorWorktree
