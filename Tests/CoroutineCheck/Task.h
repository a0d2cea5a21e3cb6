#pragma once

#include <coroutine>
#include <utility>
#include <vector>

/// The smallest coroutine type that the samples of the coroutine check can be written with.
struct Task {
    struct promise_type {
        Task get_return_object() { return {}; }

        std::suspend_never initial_suspend() noexcept { return {}; }

        std::suspend_never final_suspend() noexcept { return {}; }

        void return_void() {}

        void unhandled_exception() {}
    };

    bool await_ready() const { return true; }

    void await_suspend(std::coroutine_handle<> /*coroutine*/) const {}

    int await_resume() const { return 1; }
};

struct Options {
    std::vector<int> values;
    int limit = 0;
};

template<typename Work>
Task onWorker(Work work)
{
    std::move(work)();
    return {};
}

Task load(Options options);
Task loadAll(std::vector<int> values);
int add(int first, int second);
