#include "Fakes/ModelFixture.h"
#include "GitHubProvider/GitHubProvider.h"
#include "GitHubProvider/Process/ProcessCommandRunner.h"
#include "PullRequestKit/Errors.h"
#include "Support/LeakCheck.h"

#include <QThreadPool>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iostream>
#include <random>

#include <malloc.h>

namespace {

/// Enough that some of the commands are children.
constexpr std::int64_t fewestPolls = 30;

using namespace TestSupport;
using GitHub::CommandResult;

/// A `gh` that answers, fails, prints what is no answer, is slow, stops itself, is killed, or is
/// not there. One run of twenty is a child process.
class RandomGh final : public GitHub::CommandRunning {
public:
    CommandResult run(
        const std::filesystem::path& /*executable*/,
        const std::vector<std::string>& arguments,
        std::stop_token stopToken) const override
    {
        const bool isRefreshStart = arguments.front() == "auth";
        if (_running.fetch_add(1) != 0) {
            ++overlaps;
        }
        const std::shared_ptr<void> end(nullptr, [this](void*) { --_running; });
        if (isRefreshStart) {
            ++refreshes;
        }
        const int fault = next(100);
        return next(20) == 0 ? runChild(fault, arguments, std::move(stopToken))
                             : answerAtOnce(fault, arguments);
    }

    mutable std::atomic<int> refreshes = 0;  ///< How many have begun.
    mutable std::atomic<int> overlaps = 0;   ///< Runs that began while another one was under way.
    mutable std::atomic<int> children = 0;

private:
    static std::string answer(const std::vector<std::string>& arguments)
    {
        if (arguments.front() == "auth") {
            return "Logged in to github.com account octo\n";
        }
        const bool isSearch = std::ranges::find(arguments, "graphql") != arguments.end();
        return isSearch ? R"({"data": {"search": {"issueCount": 1,
            "pageInfo": {"hasNextPage": false}, "nodes": [{"number": 1, "title": "T",
            "url": "https://github.com/octo/tools/pull/1", "updatedAt": "2024-05-02T10:00:00Z",
            "baseRefName": "main", "headRefName": "work", "state": "OPEN",
            "repository": {"nameWithOwner": "octo/tools"}}]}}})"
                        : "";
    }

    static CommandResult answerAtOnce(int fault, const std::vector<std::string>& arguments)
    {
        switch (fault) {
        case 0:
            return {1, "", "HTTP 502"};
        case 1:
            return {0, "<html>", ""};
        case 2:
            throw ProviderError("GitHub CLI request timed out.");
        case 3:
            throw std::system_error(ENOENT, std::generic_category(), "Could not start gh");
        default:
            return {0, answer(arguments), ""};
        }
    }

    CommandResult runChild(
        int fault, const std::vector<std::string>& arguments, std::stop_token stopToken) const
    {
        ++children;
        const std::vector<std::vector<std::string>> faults{
            {"exit", "1"},
            {"print", "4096", "4096"},
            {"wait-blindly"},
            {"stop-blindly"},
            {"die", "9"}};
        const auto index = static_cast<std::size_t>(fault);
        const auto& command = index < faults.size()
                                  ? faults[index]
                                  : std::vector<std::string>{"say", answer(arguments)};
        return _runner.run(PROCESS_HELPER, command, std::move(stopToken));
    }

    int next(int bound) const
    {
        const std::lock_guard lock(_mutex);
        return std::uniform_int_distribution<int>(0, bound - 1)(_random);
    }

    GitHub::ProcessCommandRunner _runner{500ms};
    mutable std::atomic<int> _running = 0;
    mutable std::mutex _mutex;
    mutable std::minstd_rand _random{1};
};

/// Days of polling on a clock that only the test moves.
class PollingSoak
    : public ModelTest
    , public testing::WithParamInterface<PollingInterval> {
protected:
    PollingSoak()
    {
        selectTools();
        auto parts = collaborators();
        parts.provider = std::make_shared<GitHub::GitHubProvider>(
            "github.com",
            [] { return std::filesystem::path("/usr/bin/gh"); },
            gh,
            [](const std::string&) {});
        model = std::make_unique<PullRequestMenuModel>(std::move(parts));
        model->setPollingInterval(GetParam());
    }

    /// TARNWICK_SOAK_DAYS, else two hours.
    static std::chrono::milliseconds length()
    {
        const char* const days = std::getenv("TARNWICK_SOAK_DAYS");
        return days != nullptr ? std::chrono::hours(24 * std::stoi(days)) : 2h;
    }

    bool isAtRest() { return !model->isRefreshing() && clock->sleepers().size() == 1; }

    /// What may happen between two polls: an opened panel, once or twice and not awaited, and a
    /// clock that is set.
    void disturb()
    {
        const int kind = std::uniform_int_distribution<int>(0, 19)(random);
        if (kind < 2) {
            model->menuOpened();
        }
        if (kind == 1) {
            // The second looks by the clock for the end of the first, which it has cancelled.
            model->menuOpened();
            ASSERT_TRUE(eventually([&] {
                clock->advance(50ms);
                return !model->isRefreshing();
            }));
        }
        if (kind == 2) {
            clock->set(std::chrono::hours(std::uniform_int_distribution<int>(-48, 48)(random)));
        }
    }

    const std::map<int, std::string> descriptors = openDescriptors();
    std::shared_ptr<RandomGh> gh = std::make_shared<RandomGh>();
    std::minstd_rand random{7};
};

TEST_P(PollingSoak, missesNoPollAndLeavesNothingBehind)
{
    const auto period = std::chrono::milliseconds(secondsOf(GetParam()));
    const auto polls = std::max<std::int64_t>(length() / period, fewestPolls);
    std::size_t memory = 0;
    int missed = 0;
    for (std::int64_t poll = 0; poll < polls; ++poll) {
        const int before = gh->refreshes;
        disturb();
        clock->advance(period);
        ASSERT_TRUE(eventually([&] { return isAtRest(); }));
        missed += gh->refreshes > before ? 0 : 1;
        ASSERT_EQ(clock->sleepers().front(), period);
        if (poll == polls / 4) {
            memory = ::mallinfo2().uordblks;
        }
    }
    QThreadPool::globalInstance()->waitForDone();
    const std::size_t memoryAtEnd = ::mallinfo2().uordblks;
    std::cout << polls << " polls, " << gh->refreshes << " refreshes, " << gh->children
              << " children, memory in use " << memory / 1024 << " KiB, then " << memoryAtEnd / 1024
              << " KiB\n";
    EXPECT_EQ(missed, 0);
    EXPECT_EQ(gh->overlaps, 0);
    EXPECT_GT(gh->children, 0);
    EXPECT_FALSE(hasChildren());
    EXPECT_LT(memoryAtEnd, memory + std::size_t{256} * 1024);
    model.reset();  // Waits until the last list is on disk.
    // One of an earlier test's threads may have ended meanwhile.
    EXPECT_THAT(openDescriptors(), Each(testing::AnyOfArray(descriptors)));
}

INSTANTIATE_TEST_SUITE_P(
    AtEveryInterval,
    PollingSoak,
    testing::Values(
        PollingInterval::oneMinute,
        PollingInterval::fiveMinutes,
        PollingInterval::thirtyMinutes,
        PollingInterval::oneHour));

}  // namespace
