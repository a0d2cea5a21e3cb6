#pragma once

#include "GitHubProvider/Process/CommandRunning.h"

#include <memory>

namespace Tarnwick {

/// Runs `gh` and `git` with a timeout of 30 seconds and without a terminal: a prompt fails, unless
/// an askpass program shows a window. Terminates their child processes with them.
std::shared_ptr<const GitHub::CommandRunning> toolRunner();

/// Runs the editor's command with a timeout of 30 seconds and an unchanged environment, because the
/// editor passes it on to its terminals. Child processes of the command outlive it.
std::shared_ptr<const GitHub::CommandRunning> editorRunner();

}  // namespace Tarnwick
