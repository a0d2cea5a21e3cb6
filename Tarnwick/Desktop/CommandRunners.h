#pragma once

#include "GitHubProvider/Process/CommandRunning.h"

#include <memory>

namespace Tarnwick {

/// Runs `gh` and `git`, each for at most 30 seconds. They have no terminal and ask nothing on one:
/// what needs an answer fails and says so. Whatever they have started is asked to end with them.
/// An askpass program with a window of its own may still ask.
std::shared_ptr<const GitHub::CommandRunning> toolRunner();

/// Runs the editor's command for at most 30 seconds, with this program's variables as they are,
/// because the editor hands them to the terminals inside it. What the command has started outlives
/// it.
std::shared_ptr<const GitHub::CommandRunning> editorRunner();

}  // namespace Tarnwick
