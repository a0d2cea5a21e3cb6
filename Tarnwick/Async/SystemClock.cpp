#include "Tarnwick/Async/SystemClock.h"

#include <QPromise>
#include <QTimer>

#include <functional>
#include <optional>
#include <utility>

namespace Tarnwick {
namespace {

/// One sleep. It owns itself and goes once it is over.
class Sleep final : public QObject {
public:
    Sleep(std::chrono::milliseconds duration, const std::stop_token& stopToken)
    {
        _promise.start();
        connect(&_timer, &QTimer::timeout, this, &Sleep::end);
        _timer.setSingleShot(true);
        _timer.start(duration);
        _stopCallback.emplace(stopToken, [this] { end(); });
    }

    QFuture<void> future() const { return _promise.future(); }

private:
    void end()
    {
        if (std::exchange(_isOver, true)) {
            return;
        }
        _timer.stop();
        _promise.finish();
        deleteLater();
    }

    QPromise<void> _promise;
    QTimer _timer;
    bool _isOver = false;
    std::optional<std::stop_callback<std::function<void()>>> _stopCallback;
};

}  // namespace

PullRequestKit::Date SystemClock::now() const
{
    return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

QFuture<void> SystemClock::sleep(std::chrono::milliseconds duration, std::stop_token stopToken)
{
    auto* const sleep = new Sleep(duration, stopToken);
    return sleep->future();
}

}  // namespace Tarnwick
