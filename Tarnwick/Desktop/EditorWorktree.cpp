#include "Tarnwick/Desktop/EditorWorktree.h"

#include "GitHubProvider/Text.h"
#include "PullRequestKit/Errors.h"
#include "Tarnwick/Async/Worker.h"
#include "Tarnwick/ExternalNavigationError.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>
#include <vector>

namespace Tarnwick::EditorWorktree {

using GitHub::CommandResult;
using GitHub::CommandRunning;

namespace {

/// Not searched on PATH.
constexpr const char* gitExecutable = "/usr/bin/git";

/// The exit status of `git show-ref --verify` for a missing branch.
constexpr std::int32_t noSuchReference = 1;

/// Runs git in one clone and reports each step before it runs.
class Git {
public:
    Git(std::filesystem::path clone,
        std::shared_ptr<const CommandRunning> runner,
        ProgressSink progress,
        std::stop_token stopToken)
        : _clone(std::move(clone))
        , _runner(std::move(runner))
        , _progress(std::move(progress))
        , _stopToken(std::move(stopToken))
    {}

    QCoro::Task<CommandResult> run(const std::string& step, std::vector<std::string> command) const
    {
        if (_stopToken.stop_requested()) {
            throw PullRequestKit::CancellationError();
        }
        _progress(step);
        std::vector<std::string> arguments{"-C", _clone.string()};
        std::ranges::move(command, std::back_inserter(arguments));
        return onWorker([runner = _runner, arguments, stopToken = _stopToken] {
            return runner->run(gitExecutable, arguments, stopToken);
        });
    }

private:
    std::filesystem::path _clone;
    std::shared_ptr<const CommandRunning> _runner;
    ProgressSink _progress;
    std::stop_token _stopToken;
};

/// Git rejects most invalid names. But `git worktree add -b NAME` (2.39) passes the name on to `git
/// branch`, which takes a leading "-" for an option: "-m" renames the current branch.
void requireUsable(const std::string& branch)
{
    if (branch.empty()) {
        throw ExternalNavigationError("The pull request has no head branch.");
    }
    if (branch.starts_with('-')) {
        throw ExternalNavigationError(
            "The pull request's head branch begins with \"-\", so git would read it as an option.");
    }
}

/// Messages of git and ssh that result from a prompt without a terminal.
bool mayBeFailedPrompt(std::string_view errors)
{
    constexpr std::array signs{
        "terminal prompts disabled",
        "Host key verification failed",
        "Permission denied (publickey"};
    return std::ranges::any_of(
        signs, [&](const char* sign) { return errors.find(sign) != std::string_view::npos; });
}

void checkFetched(const CommandResult& fetched, const std::filesystem::path& clone)
{
    try {
        check(fetched, "Fetching origin");
    } catch (const ExternalNavigationError& error) {
        if (!mayBeFailedPrompt(fetched.standardError)) {
            throw;
        }
        throw ExternalNavigationError(
            error.message()
            + "\nTarnwick cannot ask for a password or confirm a host key. Run `git -C "
            + clone.string() + " fetch origin` in a terminal first.");
    }
}

/// The command that adds the worktree, depending on whether the local branch exists.
std::vector<std::string> addCommand(
    const CommandResult& localBranch,
    const std::filesystem::path& worktree,
    const std::string& branch)
{
    if (localBranch.status == noSuchReference) {
        return {"worktree", "add", "-b", branch, "--", worktree.string(), "origin/" + branch};
    }
    check(localBranch, "Checking the local branch");
    return {"worktree", "add", "--", worktree.string(), branch};
}

}  // namespace

std::filesystem::path worktreeDirectory(
    const std::filesystem::path& clone, const std::string& branch)
{
    std::string name = branch;
    std::ranges::replace(name, '/', '-');
    return clone.parent_path() / ".tarnwick-worktrees" / clone.filename() / name;
}

void check(const CommandResult& result, std::string_view action)
{
    if (result.status == 0) {
        return;
    }
    std::string message(action);
    message += " failed (exit " + std::to_string(result.status) + ").";
    const std::string said = GitHub::trimText(GitHub::decodeText(result.standardError));
    throw ExternalNavigationError(said.empty() ? message : message + "\n" + said);
}

QCoro::Task<std::filesystem::path> prepare(
    std::filesystem::path clone,
    std::string branch,
    std::shared_ptr<const CommandRunning> runner,
    ProgressSink progress,
    std::stop_token stopToken)
{
    requireUsable(branch);
    const std::filesystem::path worktree = worktreeDirectory(clone, branch);
    const Git git(clone, std::move(runner), std::move(progress), std::move(stopToken));

    auto fetching = git.run("Fetching origin…", {"fetch", "origin"});
    const CommandResult fetched = co_await fetching;
    checkFetched(fetched, clone);

    auto listing =
        git.run("Looking for an existing worktree…", {"worktree", "list", "--porcelain", "-z"});
    const CommandResult listed = co_await listing;
    check(listed, "Listing worktrees");
    if (auto existing = existingWorktree(listed.standardOutput, branch)) {
        co_return *std::move(existing);
    }

    auto looking = git.run(
        "Checking the local branch…", {"show-ref", "--verify", "--quiet", "refs/heads/" + branch});
    const CommandResult localBranch = co_await looking;
    std::vector<std::string> command = addCommand(localBranch, worktree, branch);

    auto adding = git.run("Creating the worktree…", std::move(command));
    const CommandResult added = co_await adding;
    check(added, "Creating the worktree");
    co_return worktree;
}

}  // namespace Tarnwick::EditorWorktree
