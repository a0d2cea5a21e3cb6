#include "Fakes/FakeClock.h"

#include "Fakes/EventLoop.h"
#include "Support/PullRequests.h"

#include <algorithm>
#include <utility>

namespace TestSupport {

void FakeClock::Sleeper::wake()
{
    if (!std::exchange(isAwake, true)) {
        promise.finish();
    }
}

PullRequestKit::Date FakeClock::now() const
{
    return date("2024-05-02T08:00:00Z")
           + std::chrono::floor<std::chrono::seconds>(_elapsed + _change);
}

QFuture<void> FakeClock::sleep(std::chrono::milliseconds duration, std::stop_token stopToken)
{
    Sleeper& sleeper = _sleepers.emplace_back();
    sleeper.due = _elapsed + duration;
    sleeper.promise.start();
    sleeper.stopCallback.emplace(stopToken, [&sleeper] { sleeper.wake(); });
    return sleeper.promise.future();
}

void FakeClock::advance(std::chrono::milliseconds duration)
{
    processEvents();
    _elapsed += duration;
    _sleepers.remove_if([](const Sleeper& sleeper) { return sleeper.isAwake; });
    for (Sleeper& sleeper : _sleepers) {
        if (sleeper.due <= _elapsed) {
            sleeper.wake();
        }
    }
    processEvents();
}

void FakeClock::suspend(std::chrono::milliseconds duration)
{
    _asleep += duration;
    advance(duration);
}

void FakeClock::advanceToNext()
{
    processEvents();
    const auto left = sleepers();
    if (!left.empty()) {
        advance(*std::ranges::min_element(left));
    }
}

std::vector<std::chrono::milliseconds> FakeClock::sleepers() const
{
    std::vector<std::chrono::milliseconds> left;
    for (const Sleeper& sleeper : _sleepers) {
        if (!sleeper.isAwake) {
            left.push_back(sleeper.due - _elapsed);
        }
    }
    return left;
}

}  // namespace TestSupport
