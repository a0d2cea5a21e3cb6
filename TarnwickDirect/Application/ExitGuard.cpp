#include "TarnwickDirect/Application/ExitGuard.h"

#include <QThreadPool>

#include <cassert>
#include <cstdlib>
#include <utility>

namespace TarnwickDirect {
namespace {

/// Empty while there is no guard.
std::function<void()>& action()
{
    static std::function<void()> current;
    return current;
}

void act()
{
    if (const auto current = std::exchange(action(), nullptr)) {
        current();
    }
}

void registerOnce()
{
    // What `exit` does runs backwards: the pool that is waited for must be there before.
    QThreadPool::globalInstance();
    action();
    [[maybe_unused]] static const int registered = std::atexit(act);
}

}  // namespace

ExitGuard::ExitGuard(std::function<void()> newAction)
{
    registerOnce();
    assert(!action());
    action() = std::move(newAction);
}

ExitGuard::~ExitGuard()
{
    action() = nullptr;
}

}  // namespace TarnwickDirect
