#pragma once

#include "Tarnwick/Async/Clock.h"

namespace Tarnwick {

/// The system's clocks; sleeping needs a running event loop. Nothing wakes up before it is due.
class SystemClock final : public Clock {
public:
    PullRequestKit::Date now() const override;
    std::chrono::milliseconds elapsed() const override;
    std::chrono::milliseconds asleep() const override;
    QFuture<void> sleep(std::chrono::milliseconds duration, std::stop_token stopToken) override;
};

}  // namespace Tarnwick
