#pragma once

#include "GitHubProvider/Process/CommandRunning.h"

#include <QTemporaryDir>

#include <filesystem>
#include <string>
#include <vector>

namespace TestSupport {

/// A bare origin with the branches main, feature/login and a/b/c, and the user's clone of it at
/// projects/tools with only main checked out. Git sees no settings of whoever runs the tests.
class GitClone {
public:
    GitClone();

    std::filesystem::path folder() const { return _folder.path().toStdString(); }

    std::filesystem::path origin() const { return folder() / "origin.git"; }

    std::filesystem::path clone() const { return folder() / "projects/tools"; }

    std::filesystem::path worktrees() const
    {
        return folder() / "projects/.tarnwick-worktrees/tools";
    }

    /// Runs git in the clone; throws when it fails, yields what it printed, without the line's end.
    std::string git(std::vector<std::string> arguments) const;

    /// The branch that is checked out in a folder.
    static std::string branchIn(const std::filesystem::path& folder);

private:
    QTemporaryDir _folder;
};

}  // namespace TestSupport
