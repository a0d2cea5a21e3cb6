#pragma once

#include "Tarnwick/Async/Clock.h"

namespace Tarnwick {

/// The system's clocks. Sleeping needs a running event loop but no periodic wake-ups.
class SystemClock final : public Clock {
public:
    PullRequestKit::Date now() const override;
    std::chrono::milliseconds elapsed() const override;
    std::chrono::milliseconds asleep() const override;
    QFuture<void> sleep(std::chrono::milliseconds duration, std::stop_token stopToken) override;
};

}  // namespace Tarnwick
