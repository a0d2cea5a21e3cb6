// Every line that ends in a comment is rejected, for what the comment says. No other line is.

#include "CoroutineCheck/Task.h"

Task lambdaInTheOperand(int value)
{
    co_await onWorker([value] { return value; });  // capturing lambda
}

Task lambdaWithDefaultCapture(int value)
{
    co_await onWorker([=] { return value; });            // capturing lambda
    co_await onWorker([&] { return value; });            // capturing lambda
    co_await onWorker([copy = value] { return copy; });  // capturing lambda
}

Task lambdaBesideTheOperand(int value, Task task)
{
    add([value] { return value; }(), co_await task);  // capturing lambda
}

template<typename Value>
Task lambdaInTemplate(Value value)
{
    co_await onWorker([value] { return value; });  // capturing lambda
}

class Loader {
public:
    Task lambdaThatCapturesThis()
    {
        co_await onWorker([this] { return _limit; });  // capturing lambda
    }

private:
    int _limit = 0;
};

Task aggregateInTheOperand(int value)
{
    auto result = co_await load(Options{.values = {}, .limit = value});  // braced temporary
    add(result, 0);
}

Task aggregateWithoutItsName(int value)
{
    if (co_await load({.values = {}, .limit = value}) == 1) {  // braced temporary
        co_return;
    }
}

Task emptyAggregate()
{
    co_await load(Options{});  // braced temporary
    co_await load({});         // braced temporary
}

Task aggregateInParentheses(int value)
{
    co_await load(Options({}, value));  // braced temporary
}

Task aggregateAroundTheOperand(Task task)
{
    Options options{.values = {}, .limit = co_await task};  // braced temporary
    co_await load(options);
}

Task bracedList(int value)
{
    co_await loadAll({1, value});  // braced temporary
}

Task coroutineLambda(int value)
{
    auto run = [value]() -> Task {        // coroutine lambda
        co_await load({.limit = value});  // braced temporary
    };
    auto task = run();
    co_await task;
}

Task genericCoroutineLambda(int value)
{
    auto run = [value](auto options) -> Task {  // coroutine lambda
        options.limit = value;
        auto task = load(options);
        co_await task;
    };
    auto task = run(Options{});
    co_await task;
}
