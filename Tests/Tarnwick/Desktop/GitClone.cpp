#include "Desktop/GitClone.h"

#include "GitHubProvider/Process/ProcessCommandRunner.h"
#include "GitHubProvider/Text.h"

#include <stdexcept>

namespace TestSupport {
namespace {

std::string run(const std::vector<std::string>& arguments)
{
    const GitHub::ProcessCommandRunner runner(std::chrono::seconds(20));
    const auto result = runner.run("/usr/bin/git", arguments, {});
    if (result.status != 0) {
        throw std::runtime_error("git failed: " + result.standardError);
    }
    return GitHub::trimText(result.standardOutput);
}

}  // namespace

GitClone::GitClone()
{
    qputenv("GIT_CONFIG_GLOBAL", "/dev/null");
    qputenv("GIT_CONFIG_NOSYSTEM", "1");
    qputenv("GIT_TERMINAL_PROMPT", "0");
    qputenv("LC_ALL", "C");
    for (const char* const role : {"AUTHOR", "COMMITTER"}) {
        qputenv((std::string("GIT_") + role + "_NAME").c_str(), "Octo");
        qputenv((std::string("GIT_") + role + "_EMAIL").c_str(), "octo@example.org");
    }
    const std::string seed = (folder() / "first").string();
    run({"init", "--quiet", "--initial-branch=main", seed});
    run({"-C", seed, "commit", "--quiet", "--allow-empty", "-m", "First"});
    run({"-C", seed, "branch", "feature/login"});
    run({"-C", seed, "branch", "a/b/c"});
    run({"clone", "--quiet", "--bare", seed, origin().string()});
    run({"clone", "--quiet", origin().string(), clone().string()});
}

std::string GitClone::git(std::vector<std::string> arguments) const
{
    arguments.insert(arguments.begin(), {"-C", clone().string()});
    return run(arguments);
}

std::string GitClone::branchIn(const std::filesystem::path& folder)
{
    return run({"-C", folder.string(), "rev-parse", "--abbrev-ref", "HEAD"});
}

}  // namespace TestSupport
