#include "Tarnwick/Async/SystemClock.h"

#include "GitHubProvider/Process/FileDescriptor.h"

#include <QPromise>
#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <ctime>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

#include <sys/timerfd.h>

namespace Tarnwick {
namespace {

std::chrono::nanoseconds timeBy(clockid_t clock)
{
    timespec time{};
    ::clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// Unlike Qt's timers, this one includes the time the machine sleeps. Not open if the system
/// refuses it.
GitHub::FileDescriptor openTimer(std::chrono::milliseconds duration)
{
    GitHub::FileDescriptor timer(::timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK));
    // A zero value would disarm the timer.
    const std::chrono::nanoseconds wait =
        std::max<std::chrono::nanoseconds>(duration, std::chrono::nanoseconds(1));
    const auto seconds = std::chrono::floor<std::chrono::seconds>(wait);
    itimerspec expiry{};
    expiry.it_value = {seconds.count(), (wait - seconds).count()};
    ::timerfd_settime(timer.number(), 0, &expiry, nullptr);
    return timer;
}

/// One sleep. Deletes itself at its end.
class Sleep final : public QObject {
public:
    Sleep(std::chrono::milliseconds duration, const std::stop_token& stopToken)
        : _timer(openTimer(duration))
    {
        _promise.start();
        if (_timer.isOpen()) {
            _notifier = std::make_unique<QSocketNotifier>(_timer.number(), QSocketNotifier::Read);
            connect(_notifier.get(), &QSocketNotifier::activated, this, &Sleep::end);
        } else {
            QTimer::singleShot(duration, this, &Sleep::end);
        }
        _stopCallback.emplace(stopToken, [this] { end(); });
    }

    QFuture<void> future() const { return _promise.future(); }

private:
    void end()
    {
        if (std::exchange(_isOver, true)) {
            return;
        }
        if (_notifier) {
            _notifier->setEnabled(false);
        }
        _promise.finish();
        deleteLater();
    }

    QPromise<void> _promise;
    GitHub::FileDescriptor _timer;
    std::unique_ptr<QSocketNotifier> _notifier;
    bool _isOver = false;
    std::optional<std::stop_callback<std::function<void()>>> _stopCallback;
};

}  // namespace

PullRequestKit::Date SystemClock::now() const
{
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

std::chrono::milliseconds SystemClock::elapsed() const
{
    return std::chrono::floor<std::chrono::milliseconds>(timeBy(CLOCK_BOOTTIME));
}

std::chrono::milliseconds SystemClock::asleep() const
{
    const auto awake = timeBy(CLOCK_MONOTONIC);
    return std::chrono::floor<std::chrono::milliseconds>(timeBy(CLOCK_BOOTTIME) - awake);
}

QFuture<void> SystemClock::sleep(std::chrono::milliseconds duration, std::stop_token stopToken)
{
    auto* const sleep = new Sleep(duration, stopToken);
    return sleep->future();
}

}  // namespace Tarnwick
