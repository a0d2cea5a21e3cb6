#pragma once

#include "PullRequestKit/Errors.h"

#include <QCoro/QCoroTask>
#include <QEventLoop>

#include <exception>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace Tarnwick {

namespace Detail {

/// The result of a task. Shared with the coroutine that awaits it, which may outlive the caller.
template<typename Result>
struct TaskEnd {
    QEventLoop loop;
    bool isOver = false;
    std::optional<std::conditional_t<std::is_void_v<Result>, bool, Result>> result;
    std::exception_ptr error;
};

template<typename Result>
QCoro::Task<> follow(QCoro::Task<Result> task, std::shared_ptr<TaskEnd<Result>> end)
{
    try {
        if constexpr (std::is_void_v<Result>) {
            co_await task;
        } else {
            end->result = co_await task;
        }
    } catch (...) {
        end->error = std::current_exception();
    }
    end->isOver = true;
    end->loop.quit();
}

}  // namespace Detail

/// Runs an event loop until the task has ended and returns its result. Throws what the task throws,
/// and `CancellationError` if the application's event loops end before. (`QCoro::waitFor` never
/// returns from a task that throws; 0.8.) Main thread only.
template<typename Result>
Result runUntilDone(QCoro::Task<Result> task)
{
    const auto end = std::make_shared<Detail::TaskEnd<Result>>();
    const auto following = Detail::follow(std::move(task), end);
    if (!end->isOver) {
        end->loop.exec();
    }
    if (end->error) {
        std::rethrow_exception(end->error);
    }
    if constexpr (std::is_void_v<Result>) {
        if (end->isOver) {
            return;
        }
    } else if (auto& result = end->result) {
        return *std::move(result);
    }
    throw PullRequestKit::CancellationError();
}

}  // namespace Tarnwick
