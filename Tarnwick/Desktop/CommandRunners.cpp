#include "Tarnwick/Desktop/CommandRunners.h"

#include "GitHubProvider/Process/ProcessCommandRunner.h"

namespace Tarnwick {

using GitHub::ChildSettings;
using GitHub::ProcessCommandRunner;

namespace {

constexpr std::chrono::seconds commandTimeout{30};

}  // namespace

std::shared_ptr<const GitHub::CommandRunning> toolRunner()
{
    // Ssh needs no batch mode: without a terminal it uses an askpass program, which batch mode
    // would forbid, or fails.
    const ChildSettings settings{
        .variables = {{"GIT_TERMINAL_PROMPT", "0"}, {"GH_PROMPT_DISABLED", "1"}},
        .reach = ChildSettings::Reach::group};
    return std::make_shared<ProcessCommandRunner>(commandTimeout, settings);
}

std::shared_ptr<const GitHub::CommandRunning> editorRunner()
{
    const ChildSettings settings{.variables = {}, .reach = ChildSettings::Reach::program};
    return std::make_shared<ProcessCommandRunner>(commandTimeout, settings);
}

}  // namespace Tarnwick
