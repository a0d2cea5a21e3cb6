#pragma once

#include <functional>

namespace TarnwickDirect {

/// Runs an action if the process calls `exit()` while the guard lives, as Qt does when the display
/// is lost; objects on the stack are then not destroyed. Also waits for the global thread pool, and
/// then ends the process before running threads use what `exit` destroys. Of nested guards only the
/// innermost one acts. Main thread only.
class ExitGuard {
public:
    explicit ExitGuard(std::function<void()> action);
    ~ExitGuard();

    /// Registers the action again, to run before the exit handlers of libraries loaded since.
    static void renew();

    ExitGuard(const ExitGuard&) = delete;
    ExitGuard& operator=(const ExitGuard&) = delete;

private:
    std::function<void()> _outer;
};

}  // namespace TarnwickDirect
