#pragma once

#include "Support/Names.h"
#include "Tarnwick/Async/Clock.h"

#include <QPromise>

#include <functional>
#include <list>
#include <optional>

namespace TestSupport {

/// A clock that stands still until a test moves it.
class FakeClock final : public Tarnwick::Clock {
public:
    PullRequestKit::Date now() const override;

    std::chrono::milliseconds elapsed() const override { return _elapsed; }

    std::chrono::milliseconds asleep() const override { return _asleep; }

    QFuture<void> sleep(std::chrono::milliseconds duration, std::stop_token stopToken) override;

    /// Moves on and runs the event loop, so that whoever slept until then has gone on.
    void advance(std::chrono::milliseconds duration);

    /// The machine sleeps for so long; then as `advance`.
    void suspend(std::chrono::milliseconds duration);

    /// Sets the time of day on or back.
    void set(std::chrono::milliseconds change) { _change += change; }

    /// Moves on to where the next sleeper wakes.
    void advanceToNext();

    /// How long each sleeper has still to sleep, in the order in which they lay down.
    std::vector<std::chrono::milliseconds> sleepers() const;

private:
    struct Sleeper {
        std::chrono::milliseconds due{};
        QPromise<void> promise;
        bool isAwake = false;
        std::optional<std::stop_callback<std::function<void()>>> stopCallback;

        void wake();
    };

    std::chrono::milliseconds _elapsed{0};
    std::chrono::milliseconds _asleep{0};
    std::chrono::milliseconds _change{0};
    std::list<Sleeper> _sleepers;
};

}  // namespace TestSupport
