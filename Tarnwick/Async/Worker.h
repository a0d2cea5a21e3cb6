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

/// Has a worker thread call `work`. Safe from any thread.
void handOver(std::function<void()> work);

}  // namespace Detail

/// Has a worker thread call `work`, possibly before it returns.
using HandOver = std::function<void(std::function<void()> work)>;

/// Has a thread of the global pool call `work`. Safe from any thread.
void runOnPool(std::function<void()> work);

/// Replaces `runOnPool` in tests that depend on when work ends. Call before any work starts.
void setHandOver(HandOver handOver);

/// Runs `work`, which may block, on a thread of the global pool. Resumes on the awaiting thread
/// with its result or exception, without suspending if it is done. Work has to check a stop token
/// itself.
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
