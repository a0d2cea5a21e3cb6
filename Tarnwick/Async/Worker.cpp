#include "Tarnwick/Async/Worker.h"

#include <QThreadPool>

#include <deque>
#include <mutex>

namespace Tarnwick::Detail {
namespace {

/// Work on its way to the pool. It passes through a mutex of this program, and not through the
/// pool's own queue, because the thread sanitizer sees no locks inside Qt's libraries and would
/// take every hand-over for a race.
struct HandOver {
    std::mutex mutex;
    std::deque<std::function<void()>> waiting;
};

HandOver& handOver()
{
    static HandOver handOver;
    return handOver;
}

void runNext()
{
    std::function<void()> work;
    {
        HandOver& queue = handOver();
        const std::lock_guard lock(queue.mutex);
        work = std::move(queue.waiting.front());
        queue.waiting.pop_front();
    }
    work();
}

}  // namespace

void runOnPool(std::function<void()> work)
{
    {
        HandOver& queue = handOver();
        const std::lock_guard lock(queue.mutex);
        queue.waiting.push_back(std::move(work));
    }
    QThreadPool::globalInstance()->start(&runNext);
}

}  // namespace Tarnwick::Detail
