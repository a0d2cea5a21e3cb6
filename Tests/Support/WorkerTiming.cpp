// Decides by TARNWICK_TEST_WORKERS when the work of worker threads is done, in every program that
// this source is part of: "finished", before whoever starts it goes on; "early", the same, but work
// that itself waits for the starting thread is not waited for; "late", after whoever starts it was
// held up for 5 ms. Otherwise whenever the threads come to it.

#include "Tarnwick/Async/Worker.h"

#include <chrono>
#include <cstdlib>
#include <memory>
#include <semaphore>
#include <string_view>
#include <thread>

namespace {

using namespace std::chrono_literals;

constexpr auto withoutLimit = 1h;
constexpr auto limit = 100ms;
constexpr auto delay = 5ms;

Tarnwick::HandOver finishWithin(std::chrono::milliseconds time)
{
    return [time](std::function<void()> work) {
        const auto isDone = std::make_shared<std::binary_semaphore>(0);
        Tarnwick::runOnPool([work = std::move(work), isDone] {
            work();
            isDone->release();
        });
        [[maybe_unused]] const bool wasInTime = isDone->try_acquire_for(time);
    };
}

void delayStarter(std::function<void()> work)
{
    Tarnwick::runOnPool(std::move(work));
    std::this_thread::sleep_for(delay);
}

[[maybe_unused]] const bool isSet = [] {
    const char* const name = std::getenv("TARNWICK_TEST_WORKERS");
    const std::string_view timing = name != nullptr ? name : "";
    if (timing == "finished") {
        Tarnwick::setHandOver(finishWithin(withoutLimit));
    } else if (timing == "early") {
        Tarnwick::setHandOver(finishWithin(limit));
    } else if (timing == "late") {
        Tarnwick::setHandOver(delayStarter);
    }
    return true;
}();

}  // namespace
