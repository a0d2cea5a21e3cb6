#include "TarnwickDirect/SoftwareUpdate/DailySchedule.h"

#include <QCoro/QCoroFuture>

#include <utility>

namespace TarnwickDirect {
namespace {

using namespace std::chrono_literals;

constexpr auto settlingTime = 1min;
constexpr auto interval = 24h;

/// Stored: do not rename.
constexpr std::string_view lastCheckKey = "updates.lastCheck";

}  // namespace

DailySchedule::DailySchedule(
    std::shared_ptr<Tarnwick::DefaultsStore> defaults,
    std::shared_ptr<Tarnwick::Clock> clock,
    std::function<void()> onDue)
    : _defaults(std::move(defaults))
    , _clock(std::move(clock))
    , _onDue(std::move(onDue))
{
    _task.start([this](std::stop_token stopToken) { return run(stopToken); });
}

void DailySchedule::noteCheck()
{
    Tarnwick::writeDate(*_defaults, lastCheckKey, _clock->now());
}

QCoro::Task<> DailySchedule::run(std::stop_token stopToken)
{
    const QFuture<void> settling = _clock->sleep(settlingTime, stopToken);
    co_await settling;
    while (!stopToken.stop_requested()) {
        const auto wait = untilDue();
        if (wait <= 0ms) {
            noteCheck();
            _onDue();
            continue;
        }
        const QFuture<void> pause = _clock->sleep(wait, stopToken);
        co_await pause;
    }
}

/// Ignores a last check in the future.
std::chrono::milliseconds DailySchedule::untilDue() const
{
    const auto now = _clock->now();
    const auto last = Tarnwick::readDate(*_defaults, lastCheckKey);
    return last && *last <= now ? *last + interval - now : 0ms;
}

}  // namespace TarnwickDirect
