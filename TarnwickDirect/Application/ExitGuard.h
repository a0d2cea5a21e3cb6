#pragma once

#include <functional>

namespace TarnwickDirect {

/// Has something done when the process ends by `exit` while the guard lives, as Qt has it end when
/// the display goes away: then nothing that is on the stack is destroyed. It is done before `exit`
/// waits for the global thread pool. One at a time. Main thread only.
class ExitGuard {
public:
    explicit ExitGuard(std::function<void()> action);
    ~ExitGuard();

    ExitGuard(const ExitGuard&) = delete;
    ExitGuard& operator=(const ExitGuard&) = delete;
};

}  // namespace TarnwickDirect
