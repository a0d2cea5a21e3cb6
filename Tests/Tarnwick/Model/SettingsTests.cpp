#include "Tarnwick/Model/Settings.h"

#include "Fakes/MemoryDefaultsStore.h"

#include <gmock/gmock.h>

namespace {

using namespace Tarnwick;
using Fakes::MemoryDefaultsStore;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

Settings loadFrom(DefaultsStore& defaults)
{
    return SettingsStore(defaults).load();
}

/// A store as a current version leaves it, so that loading has nothing to bring up to date.
void makeCurrent(MemoryDefaultsStore& defaults)
{
    loadFrom(defaults);
    defaults.writtenKeys.clear();
}

TEST(Settings, areThoseOfAFreshInstallationWhenNothingIsStored)
{
    MemoryDefaultsStore defaults;
    const Settings settings = loadFrom(defaults);
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
    EXPECT_FALSE(SettingsStore(defaults).isRepositorySelectionConfigured());
}

TEST(Settings, ofAFreshInstallationAreWrittenDownInTheirPresentForm)
{
    MemoryDefaultsStore defaults;
    loadFrom(defaults);
    EXPECT_THAT(
        defaults.writtenKeys,
        ElementsAre(
            "filters.checks",
            "filters.schemaVersion",
            "filters.reviewStates",
            "filters.mergeability"));
    EXPECT_EQ(defaults.values.at("filters.checks"), "Fail, None, Pass, Pending");
    EXPECT_EQ(defaults.values.at("filters.schemaVersion"), "2");
    EXPECT_EQ(defaults.values.at("filters.reviewStates"), "@Empty()");
    EXPECT_EQ(defaults.values.at("filters.mergeability"), "Conflicting, Mergeable, Unknown");
}

TEST(Settings, areReadFromTheirKeys)
{
    MemoryDefaultsStore defaults;
    defaults.values = {
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
        {"editor.projectDirectory", "/home/octo/Projects"},
    };
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
    EXPECT_EQ(loadFrom(defaults), expected);
    EXPECT_THAT(defaults.writtenKeys, IsEmpty());
    EXPECT_TRUE(SettingsStore(defaults).isRepositorySelectionConfigured());
}

TEST(Settings, keepEachNotificationSettingUnderItsOwnKey)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{"notifications.unblocked", "true"}};
    EXPECT_TRUE(loadFrom(defaults).unblockedNotificationsEnabled);
    EXPECT_FALSE(loadFrom(defaults).newPullRequestNotificationsEnabled);
    defaults.values = {{"notifications.newPullRequests", "true"}};
    EXPECT_FALSE(loadFrom(defaults).unblockedNotificationsEnabled);
    EXPECT_TRUE(loadFrom(defaults).newPullRequestNotificationsEnabled);
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

TEST(Settings, takeFiveMinutesForAPollingIntervalOf120Seconds)
{
    MemoryDefaultsStore defaults;
    for (const char* const stored : {"120", "0", "-60", "soon"}) {
        defaults.values = {{"polling.interval", stored}};
        EXPECT_EQ(loadFrom(defaults).pollingInterval, PollingInterval::fiveMinutes);
        EXPECT_EQ(defaults.values.at("polling.interval"), stored);
    }
}

TEST(Settings, readEveryPollingInterval)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{"polling.interval", "60"}};
    EXPECT_EQ(loadFrom(defaults).pollingInterval, PollingInterval::oneMinute);
    defaults.values = {{"polling.interval", "300"}};
    EXPECT_EQ(loadFrom(defaults).pollingInterval, PollingInterval::fiveMinutes);
    defaults.values = {{"polling.interval", "1800"}};
    EXPECT_EQ(loadFrom(defaults).pollingInterval, PollingInterval::thirtyMinutes);
}

TEST(Settings, passOverValuesOfForeignTypes)
{
    MemoryDefaultsStore defaults;
    for (const char* const key :
         {"filters.status",
          "filters.checks",
          "filters.reviewStates",
          "filters.mergeability",
          "filters.reviewers",
          "filters.repositories",
          "filters.repositoriesConfigured",
          "filters.schemaVersion",
          "list.arrangement",
          "polling.interval",
          "notifications.unblocked",
          "notifications.newPullRequests",
          "notifications.yourTurn",
          "list.involvedExplained",
          "editor.projectDirectory"}) {
        defaults.values.insert_or_assign(key, "@Date(2024-05-01T12:00:00Z)");
    }
    EXPECT_EQ(loadFrom(defaults), Settings());
    EXPECT_FALSE(SettingsStore(defaults).isRepositorySelectionConfigured());
}

TEST(Settings, sortTheSelectionAndRememberThatThereIsOne)
{
    MemoryDefaultsStore defaults;
    SettingsStore store(defaults);
    store.setSelectedRepositories({"octo/web", "Octo/app", "octo/tools"});
    EXPECT_EQ(defaults.values.at("filters.repositories"), "Octo/app, octo/tools, octo/web");
    EXPECT_EQ(defaults.values.at("filters.repositoriesConfigured"), "true");
    EXPECT_TRUE(store.isRepositorySelectionConfigured());
}

TEST(Settings, areConfiguredAfterAnEmptySelectionIsWritten)
{
    MemoryDefaultsStore defaults;
    SettingsStore store(defaults);
    store.setSelectedRepositories({});
    EXPECT_EQ(defaults.values.at("filters.repositories"), "@Empty()");
    EXPECT_TRUE(store.isRepositorySelectionConfigured());
    EXPECT_THAT(store.load().selectedRepositories, IsEmpty());
}

TEST(Settings, lookAgainWhetherAnotherProcessHasConfiguredTheSelection)
{
    MemoryDefaultsStore defaults;
    const SettingsStore store(defaults);
    EXPECT_FALSE(store.isRepositorySelectionConfigured());
    EXPECT_EQ(defaults.refreshCount, 1);
}

TEST(Settings, writeOnlyTheirOwnKey)
{
    MemoryDefaultsStore defaults;
    makeCurrent(defaults);
    SettingsStore store(defaults);
    const auto written = [&](const std::function<void(Settings&)>& change) {
        defaults.writtenKeys.clear();
        store.change(change);
        return defaults.writtenKeys;
    };
    EXPECT_THAT(written([](Settings& s) { s.statuses = {}; }), ElementsAre("filters.status"));
    EXPECT_THAT(written([](Settings& s) { s.checks = {}; }), ElementsAre("filters.checks"));
    EXPECT_THAT(
        written([](Settings& s) { s.reviewFilters = {ReviewFilter::none}; }),
        ElementsAre("filters.reviewStates"));
    EXPECT_THAT(
        written([](Settings& s) { s.mergeabilities = {}; }), ElementsAre("filters.mergeability"));
    EXPECT_THAT(
        written([](Settings& s) { s.reviewerFilter = ReviewerFilter::any; }),
        ElementsAre("filters.reviewers"));
    EXPECT_THAT(
        written([](Settings& s) { s.arrangement = Arrangement::byWhoseTurn; }),
        ElementsAre("list.arrangement"));
    EXPECT_THAT(
        written([](Settings& s) { s.pollingInterval = PollingInterval::oneHour; }),
        ElementsAre("polling.interval"));
    EXPECT_THAT(
        written([](Settings& s) { s.projectDirectory = "/src"; }),
        ElementsAre("editor.projectDirectory"));
    EXPECT_THAT(
        written([](Settings& s) { s.unblockedNotificationsEnabled = true; }),
        ElementsAre("notifications.unblocked"));
    EXPECT_THAT(
        written([](Settings& s) { s.newPullRequestNotificationsEnabled = true; }),
        ElementsAre("notifications.newPullRequests"));
    EXPECT_THAT(
        written([](Settings& s) { s.yourTurnNotificationsEnabled = true; }),
        ElementsAre("notifications.yourTurn"));
    EXPECT_THAT(
        written([](Settings& s) { s.isInvolvedExplained = true; }),
        ElementsAre("list.involvedExplained"));
    EXPECT_THAT(
        written([](Settings& s) { s.darkMode = true; }), ElementsAre("appearance.darkMode"));
    EXPECT_THAT(
        written([](Settings& s) { s.selectedRepositories = {"octo/tools"}; }),
        ElementsAre("filters.repositories", "filters.repositoriesConfigured"));
    EXPECT_THAT(written([](Settings&) {}), IsEmpty());
}

TEST(Settings, areStoredAsTheirRawValues)
{
    MemoryDefaultsStore defaults;
    SettingsStore(defaults).change([](Settings& settings) {
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
    EXPECT_EQ(defaults.values.at("filters.status"), "Draft, Open");
    EXPECT_EQ(defaults.values.at("filters.checks"), "Fail, None, Pending");
    EXPECT_EQ(defaults.values.at("filters.reviewStates"), "Changes Requested, None");
    EXPECT_EQ(defaults.values.at("filters.mergeability"), "Conflicting, Mergeable");
    EXPECT_EQ(defaults.values.at("filters.reviewers"), "Any");
    EXPECT_EQ(defaults.values.at("list.arrangement"), "By Whose Turn");
    EXPECT_EQ(defaults.values.at("polling.interval"), "1800");
    EXPECT_EQ(defaults.values.at("editor.projectDirectory"), "/home/octo/Проекты");
    EXPECT_EQ(defaults.values.at("notifications.unblocked"), "true");
    SettingsStore(defaults).change(
        [](Settings& settings) { settings.unblockedNotificationsEnabled = false; });
    EXPECT_EQ(defaults.values.at("notifications.unblocked"), "false");
}

TEST(Settings, changeFromWhatAnotherProcessHasStored)
{
    MemoryDefaultsStore defaults;
    makeCurrent(defaults);
    SettingsStore store(defaults);
    store.load();
    defaults.beforeChange = [&] {
        defaults.values.insert_or_assign("filters.repositories", "octo/web");
        defaults.values.insert_or_assign("polling.interval", "60");
    };
    const Settings settings = store.selectRepositories({"octo/tools"}, true);
    EXPECT_THAT(settings.selectedRepositories, ElementsAre("octo/tools", "octo/web"));
    EXPECT_EQ(settings.pollingInterval, PollingInterval::oneMinute);
    EXPECT_EQ(defaults.values.at("filters.repositories"), "octo/tools, octo/web");
}

TEST(Settings, areNotResetWhenAnotherProcessHasJustConfiguredTheSelection)
{
    MemoryDefaultsStore defaults;
    SettingsStore store(defaults);
    defaults.beforeChange = [&] {
        defaults.values.insert_or_assign("filters.repositories", "octo/web");
        defaults.values.insert_or_assign("filters.repositoriesConfigured", "true");
    };
    EXPECT_FALSE(store.resetUnconfiguredSelection());
    EXPECT_EQ(defaults.values.at("filters.repositories"), "octo/web");
}

TEST(Settings, areUnderstoodInAnOlderFormWithoutBeingWritten)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{"filters.checks", "Pass"}, {"filters.schemaVersion", "1"}};
    EXPECT_THAT(
        SettingsStore(defaults).current().checks,
        UnorderedElementsAre(ChecksFilter::none, ChecksFilter::pass));
    EXPECT_THAT(defaults.writtenKeys, IsEmpty());
}

TEST(Settings, keepAStoredEmptyListEmpty)
{
    MemoryDefaultsStore defaults;
    makeCurrent(defaults);
    defaults.values.insert_or_assign("filters.status", "@Empty()");
    defaults.values.insert_or_assign("filters.checks", "@Empty()");
    defaults.values.insert_or_assign("filters.mergeability", "@Empty()");
    const Settings settings = loadFrom(defaults);
    EXPECT_THAT(settings.statuses, IsEmpty());
    EXPECT_THAT(settings.checks, IsEmpty());
    EXPECT_THAT(settings.mergeabilities, IsEmpty());
    EXPECT_THAT(defaults.writtenKeys, IsEmpty());
}

}  // namespace
