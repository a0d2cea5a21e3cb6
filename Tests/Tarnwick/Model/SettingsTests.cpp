#include "Tarnwick/Model/Settings.h"

#include "Fakes/MemoryDefaultsStore.h"
#include "Support/Joined.h"

namespace {

using namespace TestSupport;

class StoredSettings : public testing::Test {
protected:
    /// The store becomes as a current version leaves it: loading has nothing to bring up to date.
    void makeCurrent()
    {
        store.load();
        defaults.writtenKeys.clear();
    }

    const std::string& stored(const char* key) const { return defaults.values.at(key); }

    MemoryDefaultsStore defaults;
    SettingsStore store{defaults};
};

TEST_F(StoredSettings, areThoseOfAFreshInstallationWhenNothingIsStored)
{
    const Settings settings = store.load();
    EXPECT_THAT(settings.statuses, UnorderedElementsAre(StatusFilter::open));
    EXPECT_THAT(
        settings.checks,
        UnorderedElementsAre(
            ChecksFilter::none, ChecksFilter::pending, ChecksFilter::pass, ChecksFilter::fail));
    EXPECT_THAT(
        settings.mergeabilities,
        UnorderedElementsAre(
            MergeabilityFilter::mergeable,
            MergeabilityFilter::conflicting,
            MergeabilityFilter::unknown));
    EXPECT_THAT(settings.reviewFilters, IsEmpty());
    EXPECT_EQ(settings.pollingInterval, PollingInterval::fiveMinutes);
    EXPECT_EQ(settings.reviewerFilter, ReviewerFilter::myself);
    EXPECT_THAT(settings.selectedRepositories, IsEmpty());
    EXPECT_EQ(settings.projectDirectory, "");
    EXPECT_FALSE(settings.unblockedNotificationsEnabled);
    EXPECT_FALSE(settings.newPullRequestNotificationsEnabled);
    EXPECT_EQ(settings, Settings());
    EXPECT_FALSE(store.isRepositorySelectionConfigured());
}

TEST_F(StoredSettings, ofAFreshInstallationAreWrittenDownInTheirPresentForm)
{
    store.load();
    EXPECT_EQ(
        joined(defaults.writtenKeys),
        "filters.checks, filters.schemaVersion, filters.reviewStates, filters.mergeability");
    EXPECT_EQ(stored("filters.checks"), "Fail, None, Pass, Pending");
    EXPECT_EQ(stored("filters.schemaVersion"), "2");
    EXPECT_EQ(stored("filters.reviewStates"), "@Empty()");
    EXPECT_EQ(stored("filters.mergeability"), "Conflicting, Mergeable, Unknown");
}

/// Another value than the usual one under every key.
const std::map<std::string, std::string, std::less<>> otherValues{
    {"filters.status", "Draft, Open"},
    {"filters.checks", "Fail"},
    {"filters.schemaVersion", "2"},
    {"filters.reviewStates", "Changes Requested, None"},
    {"filters.mergeability", "Unknown"},
    {"filters.reviewers", "Any"},
    {"filters.repositories", "octo/tools, octo/web"},
    {"filters.repositoriesConfigured", "true"},
    {"list.arrangement", "By Whose Turn"},
    {"polling.interval", "3600"},
    {"notifications.unblocked", "true"},
    {"notifications.newPullRequests", "true"},
    {"notifications.yourTurn", "true"},
    {"list.involvedExplained", "true"},
    {"editor.projectDirectory", "/home/octo/Projects"}};

TEST_F(StoredSettings, areReadFromTheirKeys)
{
    defaults.values = otherValues;
    const Settings expected{
        .selectedRepositories = {"octo/tools", "octo/web"},
        .statuses = {StatusFilter::open, StatusFilter::draft},
        .checks = {ChecksFilter::fail},
        .reviewFilters = {ReviewFilter::changesRequested, ReviewFilter::none},
        .mergeabilities = {MergeabilityFilter::unknown},
        .reviewerFilter = ReviewerFilter::any,
        .arrangement = Arrangement::byWhoseTurn,
        .pollingInterval = PollingInterval::oneHour,
        .projectDirectory = "/home/octo/Projects",
        .unblockedNotificationsEnabled = true,
        .newPullRequestNotificationsEnabled = true,
        .yourTurnNotificationsEnabled = true,
        .isInvolvedExplained = true,
    };
    EXPECT_EQ(store.load(), expected);
    EXPECT_THAT(defaults.writtenKeys, IsEmpty());
    EXPECT_TRUE(store.isRepositorySelectionConfigured());
}

TEST_F(StoredSettings, keepEachNotificationSettingUnderItsOwnKey)
{
    defaults.values = {{"notifications.unblocked", "true"}};
    EXPECT_TRUE(store.load().unblockedNotificationsEnabled);
    EXPECT_FALSE(store.load().newPullRequestNotificationsEnabled);
    defaults.values = {{"notifications.newPullRequests", "true"}};
    EXPECT_FALSE(store.load().unblockedNotificationsEnabled);
    EXPECT_TRUE(store.load().newPullRequestNotificationsEnabled);
}

TEST(Settings, explainTheListByTurnWhereOnlyReviewsAreListedUntilTheUserAnswers)
{
    Settings settings;
    EXPECT_FALSE(isInvolvedHintDue(settings));
    settings.arrangement = Arrangement::byWhoseTurn;
    EXPECT_TRUE(isInvolvedHintDue(settings));
    for (const ReviewerFilter others : {ReviewerFilter::any, ReviewerFilter::involved}) {
        settings.reviewerFilter = others;
        EXPECT_FALSE(isInvolvedHintDue(settings));
    }
    settings.reviewerFilter = ReviewerFilter::myself;
    settings.isInvolvedExplained = true;
    EXPECT_FALSE(isInvolvedHintDue(settings));
}

TEST(Settings, notifyWhenAnyNotificationIsOn)
{
    EXPECT_FALSE(notifies(Settings()));
    for (const auto flag :
         {&Settings::unblockedNotificationsEnabled,
          &Settings::newPullRequestNotificationsEnabled,
          &Settings::yourTurnNotificationsEnabled}) {
        Settings settings;
        settings.*flag = true;
        EXPECT_TRUE(notifies(settings));
    }
}

TEST_F(StoredSettings, takeFiveMinutesForAPollingIntervalOf120Seconds)
{
    for (const char* const interval : {"120", "0", "-60", "soon"}) {
        defaults.values = {{"polling.interval", interval}};
        EXPECT_EQ(store.load().pollingInterval, PollingInterval::fiveMinutes);
        EXPECT_EQ(stored("polling.interval"), interval);
    }
}

TEST_F(StoredSettings, readEveryPollingInterval)
{
    const auto read = [&](const char* interval) {
        defaults.values = {{"polling.interval", interval}};
        return store.load().pollingInterval;
    };
    EXPECT_EQ(read("60"), PollingInterval::oneMinute);
    EXPECT_EQ(read("300"), PollingInterval::fiveMinutes);
    EXPECT_EQ(read("1800"), PollingInterval::thirtyMinutes);
}

TEST_F(StoredSettings, passOverValuesOfForeignTypes)
{
    defaults.values = otherValues;
    for (auto& [key, value] : defaults.values) {
        value = "@Date(2024-05-01T12:00:00Z)";
    }
    EXPECT_EQ(store.load(), Settings());
    EXPECT_FALSE(store.isRepositorySelectionConfigured());
}

TEST_F(StoredSettings, sortTheSelectionAndRememberThatThereIsOne)
{
    store.setSelectedRepositories({"octo/web", "Octo/app", "octo/tools"});
    EXPECT_EQ(stored("filters.repositories"), "Octo/app, octo/tools, octo/web");
    EXPECT_EQ(stored("filters.repositoriesConfigured"), "true");
    EXPECT_TRUE(store.isRepositorySelectionConfigured());
}

TEST_F(StoredSettings, areConfiguredAfterAnEmptySelectionIsWritten)
{
    store.setSelectedRepositories({});
    EXPECT_EQ(stored("filters.repositories"), "@Empty()");
    EXPECT_TRUE(store.isRepositorySelectionConfigured());
    EXPECT_THAT(store.load().selectedRepositories, IsEmpty());
}

TEST_F(StoredSettings, lookAgainWhetherAnotherProcessHasConfiguredTheSelection)
{
    EXPECT_FALSE(store.isRepositorySelectionConfigured());
    EXPECT_EQ(defaults.refreshCount, 1);
}

TEST_F(StoredSettings, writeOnlyTheirOwnKey)
{
    makeCurrent();
    const auto expectWritten = [&]<typename Value>(
                                   Value Settings::* setting,
                                   const std::type_identity_t<Value>& value,
                                   const std::vector<std::string>& keys) {
        defaults.writtenKeys.clear();
        store.change([&](Settings& settings) { settings.*setting = value; });
        EXPECT_EQ(defaults.writtenKeys, keys);
    };
    expectWritten(&Settings::statuses, {}, {"filters.status"});
    expectWritten(&Settings::checks, {}, {"filters.checks"});
    expectWritten(&Settings::reviewFilters, {ReviewFilter::none}, {"filters.reviewStates"});
    expectWritten(&Settings::mergeabilities, {}, {"filters.mergeability"});
    expectWritten(&Settings::reviewerFilter, ReviewerFilter::any, {"filters.reviewers"});
    expectWritten(&Settings::arrangement, Arrangement::byWhoseTurn, {"list.arrangement"});
    expectWritten(&Settings::pollingInterval, PollingInterval::oneHour, {"polling.interval"});
    expectWritten(&Settings::projectDirectory, "/src", {"editor.projectDirectory"});
    expectWritten(&Settings::unblockedNotificationsEnabled, true, {"notifications.unblocked"});
    expectWritten(
        &Settings::newPullRequestNotificationsEnabled, true, {"notifications.newPullRequests"});
    expectWritten(&Settings::yourTurnNotificationsEnabled, true, {"notifications.yourTurn"});
    expectWritten(&Settings::isInvolvedExplained, true, {"list.involvedExplained"});
    expectWritten(&Settings::darkMode, true, {"appearance.darkMode"});
    expectWritten(
        &Settings::selectedRepositories,
        {"octo/tools"},
        {"filters.repositories", "filters.repositoriesConfigured"});
    expectWritten(&Settings::darkMode, true, {});
}

TEST_F(StoredSettings, areStoredAsTheirRawValues)
{
    store.change([](Settings& settings) {
        settings.statuses = {StatusFilter::open, StatusFilter::draft};
        settings.checks = {ChecksFilter::none, ChecksFilter::pending, ChecksFilter::fail};
        settings.reviewFilters = {ReviewFilter::none, ReviewFilter::changesRequested};
        settings.mergeabilities = {MergeabilityFilter::mergeable, MergeabilityFilter::conflicting};
        settings.reviewerFilter = ReviewerFilter::any;
        settings.arrangement = Arrangement::byWhoseTurn;
        settings.pollingInterval = PollingInterval::thirtyMinutes;
        settings.projectDirectory = "/home/octo/Проекты";
        settings.unblockedNotificationsEnabled = true;
    });
    EXPECT_EQ(stored("filters.status"), "Draft, Open");
    EXPECT_EQ(stored("filters.checks"), "Fail, None, Pending");
    EXPECT_EQ(stored("filters.reviewStates"), "Changes Requested, None");
    EXPECT_EQ(stored("filters.mergeability"), "Conflicting, Mergeable");
    EXPECT_EQ(stored("filters.reviewers"), "Any");
    EXPECT_EQ(stored("list.arrangement"), "By Whose Turn");
    EXPECT_EQ(stored("polling.interval"), "1800");
    EXPECT_EQ(stored("editor.projectDirectory"), "/home/octo/Проекты");
    EXPECT_EQ(stored("notifications.unblocked"), "true");
    store.change([](Settings& settings) { settings.unblockedNotificationsEnabled = false; });
    EXPECT_EQ(stored("notifications.unblocked"), "false");
}

TEST_F(StoredSettings, changeFromWhatAnotherProcessHasStored)
{
    makeCurrent();
    store.load();
    defaults.beforeChange = [&] {
        defaults.values.insert_or_assign("filters.repositories", "octo/web");
        defaults.values.insert_or_assign("polling.interval", "60");
    };
    const Settings settings = store.selectRepositories({"octo/tools"}, true);
    EXPECT_THAT(settings.selectedRepositories, ElementsAre("octo/tools", "octo/web"));
    EXPECT_EQ(settings.pollingInterval, PollingInterval::oneMinute);
    EXPECT_EQ(stored("filters.repositories"), "octo/tools, octo/web");
}

TEST_F(StoredSettings, areNotResetWhenAnotherProcessHasJustConfiguredTheSelection)
{
    defaults.beforeChange = [&] {
        defaults.values.insert_or_assign("filters.repositories", "octo/web");
        defaults.values.insert_or_assign("filters.repositoriesConfigured", "true");
    };
    EXPECT_FALSE(store.resetUnconfiguredSelection());
    EXPECT_EQ(stored("filters.repositories"), "octo/web");
}

TEST_F(StoredSettings, areUnderstoodInAnOlderFormWithoutBeingWritten)
{
    defaults.values = {{"filters.checks", "Pass"}, {"filters.schemaVersion", "1"}};
    EXPECT_THAT(
        store.current().checks, UnorderedElementsAre(ChecksFilter::none, ChecksFilter::pass));
    EXPECT_THAT(defaults.writtenKeys, IsEmpty());
}

TEST_F(StoredSettings, keepAStoredEmptyListEmpty)
{
    makeCurrent();
    defaults.values.insert_or_assign("filters.status", "@Empty()");
    defaults.values.insert_or_assign("filters.checks", "@Empty()");
    defaults.values.insert_or_assign("filters.mergeability", "@Empty()");
    const Settings settings = store.load();
    EXPECT_THAT(settings.statuses, IsEmpty());
    EXPECT_THAT(settings.checks, IsEmpty());
    EXPECT_THAT(settings.mergeabilities, IsEmpty());
    EXPECT_THAT(defaults.writtenKeys, IsEmpty());
}

}  // namespace
