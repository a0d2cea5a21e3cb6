#include "TarnwickDirect/Application/ExitGuard.h"

#include <QThreadPool>

#include <cassert>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include <unistd.h>

namespace TarnwickDirect {
namespace {

/// Empty without a guard.
std::function<void()>& action()
{
    static std::function<void()> current;
    return current;
}

void act(int status, void* /*argument*/)
{
    if (const auto current = std::exchange(action(), nullptr)) {
        current();
        QThreadPool::globalInstance()->waitForDone();
        std::fflush(nullptr);
        ::_exit(status);
    }
}

void registerOnce()
{
    // Must exist before the exit handler is registered, because `exit` destroys in reverse order.
    QThreadPool::globalInstance();
    action();
    [[maybe_unused]] static const int registered = ::on_exit(act, nullptr);
}

}  // namespace

ExitGuard::ExitGuard(std::function<void()> newAction)
{
    registerOnce();
    assert(!action());
    action() = std::move(newAction);
}

void ExitGuard::renew()
{
    ::on_exit(act, nullptr);
}

ExitGuard::~ExitGuard()
{
    action() = nullptr;
}

}  // namespace TarnwickDirect
