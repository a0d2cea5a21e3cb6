#include "Tarnwick/Async/Worker.h"

#include <QThreadPool>

#include <deque>
#include <mutex>

namespace Tarnwick {
namespace {

/// Work on its way to the pool. It is handed over under a mutex of this program, because the thread
/// sanitizer does not see the locks inside Qt and would report a race in the pool's own queue.
struct WorkQueue {
    std::mutex mutex;
    std::deque<std::function<void()>> works;
};

WorkQueue& queue()
{
    // Never destroyed, because threads still take work while `exit` destroys static objects.
    static WorkQueue& queue = *new WorkQueue;
    return queue;
}

void runNext()
{
    std::function<void()> work;
    {
        const std::lock_guard lock(queue().mutex);
        work = std::move(queue().works.front());
        queue().works.pop_front();
    }
    work();
}

HandOver& currentHandOver()
{
    static HandOver current = runOnPool;
    return current;
}

}  // namespace

void runOnPool(std::function<void()> work)
{
    {
        const std::lock_guard lock(queue().mutex);
        queue().works.push_back(std::move(work));
    }
    QThreadPool::globalInstance()->start(&runNext);
}

void setHandOver(HandOver handOver)
{
    currentHandOver() = std::move(handOver);
}

void Detail::handOver(std::function<void()> work)
{
    currentHandOver()(std::move(work));
}

}  // namespace Tarnwick
