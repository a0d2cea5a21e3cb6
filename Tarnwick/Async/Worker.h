#pragma once

#include <QCoro/QCoroFuture>
#include <QCoro/QCoroTask>
#include <QPromise>

#include <atomic>
#include <cassert>
#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace Tarnwick {

namespace Detail {

/// Work that goes to a worker thread, and what comes back of it.
template<typename Work>
struct Job {
    explicit Job(Work newWork)
        : work(std::move(newWork))
    {
        promise.start();
    }

    void run()
    {
        try {
            result.emplace(work());
        } catch (...) {
            error = std::current_exception();
        }
        isDone.store(true, std::memory_order_release);
        promise.finish();
    }

    Work work;
    std::optional<std::invoke_result_t<Work>> result;
    std::exception_ptr error;
    std::atomic<bool> isDone = false;
    QPromise<void> promise;
};

/// Has a worker thread call `work` soon, by way of the hand-over. Safe from any thread.
void handOver(std::function<void()> work);

}  // namespace Detail

/// Has a worker thread call what it is given, which may be done before the hand-over returns.
using HandOver = std::function<void(std::function<void()> work)>;

/// Has a thread of the global pool call `work` soon. Safe from any thread.
void runOnPool(std::function<void()> work);

/// Hands work over in another way than by `runOnPool`, for tests of what depends on the moment at
/// which work ends. To be called before there is any work.
void setHandOver(HandOver handOver);

/// Runs `work`, a function without arguments that may block, on a thread of the global pool, and
/// resumes on the thread that awaits, with what it returned or threw. Work that is done by then
/// does not suspend the caller at all. Nothing cancels the work from outside: it looks at a stop
/// token of its own.
template<typename Work>
QCoro::Task<std::invoke_result_t<Work>> onWorker(Work work)
{
    const auto job = std::make_shared<Detail::Job<Work>>(std::move(work));
    const QFuture<void> finished = job->promise.future();
    Detail::handOver([job] { job->run(); });
    co_await finished;
    [[maybe_unused]] const bool isDone = job->isDone.load(std::memory_order_acquire);
    assert(isDone);
    auto& result = job->result;
    if (!result) {
        std::rethrow_exception(job->error);
    }
    co_return std::move(*result);
}

}  // namespace Tarnwick
