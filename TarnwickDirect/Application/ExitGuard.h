#pragma once

#include <functional>

namespace TarnwickDirect {

/// Has something done when the process ends by `exit` while the guard lives, as Qt has it end when
/// the display goes away: then nothing that is on the stack is destroyed. The global thread pool is
/// waited for, and the process ends at once, before threads that still run miss what `exit`
/// destroys. One at a time. Main thread only.
class ExitGuard {
public:
    explicit ExitGuard(std::function<void()> action);
    ~ExitGuard();

    /// Has it done before `exit` destroys what libraries have set up so far, when some were loaded
    /// since.
    static void renew();

    ExitGuard(const ExitGuard&) = delete;
    ExitGuard& operator=(const ExitGuard&) = delete;
};

}  // namespace TarnwickDirect
