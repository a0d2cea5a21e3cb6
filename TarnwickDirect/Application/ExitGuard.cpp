#include "TarnwickDirect/Application/ExitGuard.h"

#include <QThreadPool>

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

}  // namespace

ExitGuard::ExitGuard(std::function<void()> newAction)
    : _outer(std::exchange(action(), std::move(newAction)))
{
    // Must exist before the exit handler is registered, because `exit` destroys in reverse order.
    QThreadPool::globalInstance();
    renew();
}

void ExitGuard::renew()
{
    ::on_exit(act, nullptr);
}

ExitGuard::~ExitGuard()
{
    action() = std::move(_outer);
}

}  // namespace TarnwickDirect
