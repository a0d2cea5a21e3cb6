#pragma once

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
    QFuture<void> sleep(std::chrono::milliseconds duration, std::stop_token stopToken) override;

    /// Moves on and runs the event loop, so that whoever slept until then has gone on.
    void advance(std::chrono::milliseconds duration);

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
    std::list<Sleeper> _sleepers;
};

}  // namespace TestSupport
