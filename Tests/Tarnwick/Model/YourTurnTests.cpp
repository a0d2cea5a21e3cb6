#include "Fakes/ModelFixture.h"

namespace {

using namespace TestSupport;

/// The notifications of whose turn it is, to the user "octo". Every pull request is somebody
/// else's.
class YourTurn : public ModelTest {
protected:
    void SetUp() override
    {
        selectTools();
        provider->setRepositories({"octo/tools"});
        provider->setFacts([this](std::span<const PullRequest> asked) {
            FactsAnswer answer;
            for (const PullRequest& pullRequest : asked) {
                PullRequestFacts& facts = answer.facts[pullRequest.id];
                facts.askedAt = clock->now();
                facts.updatedAt = pullRequest.updatedAt;
                facts.headCommit = head;
            }
            return answer;
        });
    }

    void startNotifying()
    {
        SettingsStore(*defaults).change(
            [](Settings& settings) { settings.yourTurnNotificationsEnabled = true; });
        start();
    }

    void startWithNobodyAsked()
    {
        startNotifying();
        refreshWith(1, {});
    }

    /// A refresh that lists 1 to `count`, of which these ask for the user's review.
    void refreshWith(std::int64_t count, const std::vector<std::int64_t>& asking)
    {
        std::vector<PullRequest> pullRequests;
        std::vector<PullRequestDetails> details(static_cast<std::size_t>(count));
        for (std::int64_t number = 1; number <= count; ++number) {
            auto& pullRequest = pullRequests.emplace_back(makePullRequest(number));
            pullRequest.author = "bo";
            pullRequest.updatedAt += std::chrono::minutes(refreshes);
        }
        for (const std::int64_t number : asking) {
            details[static_cast<std::size_t>(number - 1)].requestedUsers = {"octo"};
        }
        provider->setPullRequests(std::move(pullRequests));
        provider->setDetails(std::move(details));
        clock->advance(1s);
        ++refreshes;
        refresh();
        runToEnd(model->askForFacts());
        processEvents();
    }

    std::string head = "c1";
    int refreshes = 0;
};

TEST_F(YourTurn, isOffAtFirst)
{
    start();
    EXPECT_FALSE(model->settings().yourTurnNotificationsEnabled);
    refreshWith(1, {});
    refreshWith(1, {1});
    EXPECT_THAT(notifier->shown, IsEmpty());
}

TEST_F(YourTurn, isToldWithItsReasonWhateverTheArrangementIs)
{
    startNotifying();
    refreshWith(2, {1});
    EXPECT_THAT(notifier->shown, IsEmpty());
    refreshWith(2, {1, 2});
    EXPECT_THAT(notifier->shown, ElementsAre("turn 2: Your review"));
    refreshWith(2, {1, 2});
    EXPECT_EQ(notifier->shown.size(), 1U);
    EXPECT_THAT(model->list().arranged()->turns, IsEmpty());
}

TEST_F(YourTurn, beginsAnewWithOtherFilters)
{
    startWithNobodyAsked();
    model->toggleStatus(StatusFilter::draft);
    refreshWith(1, {1});
    EXPECT_THAT(notifier->shown, IsEmpty());
}

TEST_F(YourTurn, isTurnedOffWithoutPermission)
{
    notifier->isGranted = false;
    startNotifying();
    processEvents();
    EXPECT_FALSE(model->settings().yourTurnNotificationsEnabled);
}

TEST_F(YourTurn, saysWhenItCannotBeTold)
{
    startWithNobodyAsked();
    notifier->error = "The server is gone.";
    refreshWith(1, {1});
    EXPECT_EQ(
        model->settingsError(),
        "A \"Your turn\" notification could not be delivered: The server is gone.");
}

TEST_F(YourTurn, isRememberedWhereItIsFoundAgain)
{
    startWithNobodyAsked();
    refreshWith(1, {1});
    model.reset();
    const KnownTurns kept = turnsFile->load();
    ASSERT_EQ(kept.entries.size(), 1U);
    EXPECT_EQ(kept.entries.front().whose, Whose::you);
    EXPECT_EQ(kept.entries.front().toldHead, "c1");
}

}  // namespace
