#pragma once

#include "Support/Names.h"

#include <QCoro/QCoroTask>

#include <functional>
#include <optional>

namespace TestSupport {

/// Runs the event loop until the condition holds; false when it does not within 20 seconds.
bool eventually(const std::function<bool()>& condition);

/// Runs the event loop until nothing is left to do but to wait for threads and timers.
void processEvents();

/// Runs the event loop until the task has ended. Throws what the task threw.
void runToEnd(QCoro::Task<> task);

/// Keeps what the task yields in `result`.
template<typename Value>
QCoro::Task<> keep(QCoro::Task<Value> task, std::optional<Value>* result)
{
    *result = co_await task;
}

/// As `runToEnd`; what the task yielded.
template<typename Value>
Value valueOf(QCoro::Task<Value> task)
{
    std::optional<Value> result;
    runToEnd(keep(std::move(task), &result));
    return std::move(result).value();
}

}  // namespace TestSupport
