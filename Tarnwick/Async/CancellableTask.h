#pragma once

#include <QCoro/QCoroTask>

#include <stop_token>
#include <utility>

namespace Tarnwick {

/// Runs one coroutine at a time. Starting another, or destruction, requests the previous one to
/// stop; it notices when it next resumes. Main thread only.
class CancellableTask {
public:
    CancellableTask() = default;
    CancellableTask(const CancellableTask&) = delete;
    CancellableTask& operator=(const CancellableTask&) = delete;

    ~CancellableTask() { cancel(); }

    /// `body` takes a stop token and returns a `QCoro::Task<>` that does not throw. It runs at once
    /// up to its first suspension.
    template<typename Body>
    void start(Body body)
    {
        cancel();
        _source = std::stop_source();
        body(_source.get_token());
    }

    void cancel() { _source.request_stop(); }

private:
    std::stop_source _source;
};

}  // namespace Tarnwick
