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

/// Takes one line on what a long action is doing now. Called on the main thread.
using ProgressSink = std::function<void(const std::string& text)>;

}  // namespace Tarnwick

/// Git worktrees on the head branches of pull requests. They lie beside the user's clone, in
/// `.tarnwick-worktrees/CLONE/BRANCH`, and whatever git has made stays, also after a failure.
namespace Tarnwick::EditorWorktree {

/// Where the worktree for a branch belongs. In its name "-" stands for every "/" of the branch.
/// Safe from any thread.
std::filesystem::path worktreeDirectory(
    const std::filesystem::path& clone, const std::string& branch);

/// Throws `ExternalNavigationError` unless the command ended with 0: "ACTION failed (exit STATUS)."
/// and, on a second line, what it wrote to standard error. Safe from any thread.
void check(const GitHub::CommandResult& result, std::string_view action);

/// Fetches, then finds the worktree on `branch` or makes it, with the branch made from origin's
/// where there is none, and yields its folder. Main thread only; the commands run on a worker
/// thread, one after the other. A fetch that may have failed for want of an answer says what to do.
/// Throws `ExternalNavigationError`, what the runner throws, and
/// `CancellationError` once `stopToken` is stopped.
/// Requires: `progress` can be called.
QCoro::Task<std::filesystem::path> prepare(
    std::filesystem::path clone,
    std::string branch,
    std::shared_ptr<const GitHub::CommandRunning> runner,
    ProgressSink progress,
    std::stop_token stopToken);

}  // namespace Tarnwick::EditorWorktree
