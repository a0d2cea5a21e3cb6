#pragma once

#include <QCoro/QCoroTask>

#include <functional>

namespace TestSupport {

/// Runs the event loop until the condition holds; false when it does not within 20 seconds.
bool eventually(const std::function<bool()>& condition);

/// Runs the event loop until nothing is left to do but to wait for threads and timers.
void processEvents();

/// Runs the event loop until the task has ended. Throws what the task threw.
void runToEnd(QCoro::Task<> task);

}  // namespace TestSupport
