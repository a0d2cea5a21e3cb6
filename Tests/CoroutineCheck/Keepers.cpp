// What the check leaves alone: names first, and lambdas whose bodies are functions of their own.

#include "CoroutineCheck/Task.h"

Task namedTaskWithCapturingLambda(int value)
{
    auto task = onWorker([value] { return value; });
    co_await task;
}

Task namedAggregate(int value)
{
    Options options{.values = {1, 2}, .limit = value};
    auto task = load(options);
    const int result{co_await task};
    add(result, value);
}

Task callOnNames(Options options)
{
    co_await load(options);
    co_await loadAll(std::move(options.values));
}

Task lambdaWithoutCaptures()
{
    co_await onWorker([] {
        const Options options{.values = {1}, .limit = 2};
        auto limit = [&options] { return options.limit; };
        return limit();
    });
}

Task capturesAfterTheSuspension(Task task)
{
    auto value = co_await task;
    auto doubled = [value] { return 2 * value; };
    add(doubled(), value);
}

auto coroutineLambdaWithoutCaptures = [](int value) -> Task {
    auto task = onWorker([value] { return value; });
    co_await task;
    Options options{.values = {}, .limit = value};
    co_await load(options);
};

Task capturingLambdaThatMakesTasks(int value)
{
    auto make = [value](Options options) {
        options.limit = value;
        return load(options);
    };
    auto task = make(Options{});
    co_await task;
}
