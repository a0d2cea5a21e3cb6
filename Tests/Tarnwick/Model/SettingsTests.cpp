#include "Tarnwick/Model/Settings.h"

#include "Fakes/MemoryDefaultsStore.h"

#include <QStringList>

#include <gmock/gmock.h>

namespace {

using namespace Qt::StringLiterals;
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
            u"filters.checks",
            u"filters.schemaVersion",
            u"filters.reviewStates",
            u"filters.mergeability"));
    EXPECT_EQ(
        defaults.values.at(u"filters.checks"_s),
        (QStringList{u"Fail"_s, u"None"_s, u"Pass"_s, u"Pending"_s}));
    EXPECT_EQ(defaults.values.at(u"filters.schemaVersion"_s), 2);
    EXPECT_EQ(defaults.values.at(u"filters.reviewStates"_s), QStringList());
    EXPECT_EQ(
        defaults.values.at(u"filters.mergeability"_s),
        (QStringList{u"Conflicting"_s, u"Mergeable"_s, u"Unknown"_s}));
}

TEST(Settings, areReadFromTheirKeys)
{
    MemoryDefaultsStore defaults;
    defaults.values = {
        {u"filters.status"_s, QStringList{u"Draft"_s, u"Open"_s}},
        {u"filters.checks"_s, QStringList{u"Fail"_s}},
        {u"filters.schemaVersion"_s, 2},
        {u"filters.reviewStates"_s, QStringList{u"Changes Requested"_s, u"None"_s}},
        {u"filters.mergeability"_s, QStringList{u"Unknown"_s}},
        {u"filters.reviewers"_s, u"Any"_s},
        {u"filters.repositories"_s, QStringList{u"octo/tools"_s, u"octo/web"_s}},
        {u"filters.repositoriesConfigured"_s, true},
        {u"list.arrangement"_s, u"By Whose Turn"_s},
        {u"polling.interval"_s, 3600},
        {u"notifications.unblocked"_s, true},
        {u"notifications.newPullRequests"_s, true},
        {u"notifications.yourTurn"_s, true},
        {u"list.involvedExplained"_s, true},
        {u"editor.projectDirectory"_s, u"/home/octo/Projects"_s},
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
    defaults.values = {{u"notifications.unblocked"_s, true}};
    EXPECT_TRUE(loadFrom(defaults).unblockedNotificationsEnabled);
    EXPECT_FALSE(loadFrom(defaults).newPullRequestNotificationsEnabled);
    defaults.values = {{u"notifications.newPullRequests"_s, true}};
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
    for (const QVariant& stored :
         {QVariant(120), QVariant(0), QVariant(-60), QVariant(u"soon"_s)}) {
        defaults.values = {{u"polling.interval"_s, stored}};
        EXPECT_EQ(loadFrom(defaults).pollingInterval, PollingInterval::fiveMinutes);
        EXPECT_EQ(defaults.values.at(u"polling.interval"_s), stored);
    }
}

TEST(Settings, readEveryPollingInterval)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{u"polling.interval"_s, 60}};
    EXPECT_EQ(loadFrom(defaults).pollingInterval, PollingInterval::oneMinute);
    defaults.values = {{u"polling.interval"_s, 300}};
    EXPECT_EQ(loadFrom(defaults).pollingInterval, PollingInterval::fiveMinutes);
    defaults.values = {{u"polling.interval"_s, u"1800"_s}};
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
        defaults.values.insert_or_assign(QString::fromUtf8(key), QByteArray("\x01\x02"));
    }
    EXPECT_EQ(loadFrom(defaults), Settings());
    EXPECT_FALSE(SettingsStore(defaults).isRepositorySelectionConfigured());
}

TEST(Settings, sortTheSelectionAndRememberThatThereIsOne)
{
    MemoryDefaultsStore defaults;
    SettingsStore store(defaults);
    store.setSelectedRepositories({"octo/web", "Octo/app", "octo/tools"});
    EXPECT_EQ(
        defaults.values.at(u"filters.repositories"_s),
        (QStringList{u"Octo/app"_s, u"octo/tools"_s, u"octo/web"_s}));
    EXPECT_EQ(defaults.values.at(u"filters.repositoriesConfigured"_s), true);
    EXPECT_TRUE(store.isRepositorySelectionConfigured());
}

TEST(Settings, areConfiguredAfterAnEmptySelectionIsWritten)
{
    MemoryDefaultsStore defaults;
    SettingsStore store(defaults);
    store.setSelectedRepositories({});
    EXPECT_EQ(defaults.values.at(u"filters.repositories"_s), QStringList());
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
    EXPECT_THAT(written([](Settings& s) { s.statuses = {}; }), ElementsAre(u"filters.status"));
    EXPECT_THAT(written([](Settings& s) { s.checks = {}; }), ElementsAre(u"filters.checks"));
    EXPECT_THAT(
        written([](Settings& s) { s.reviewFilters = {ReviewFilter::none}; }),
        ElementsAre(u"filters.reviewStates"));
    EXPECT_THAT(
        written([](Settings& s) { s.mergeabilities = {}; }), ElementsAre(u"filters.mergeability"));
    EXPECT_THAT(
        written([](Settings& s) { s.reviewerFilter = ReviewerFilter::any; }),
        ElementsAre(u"filters.reviewers"));
    EXPECT_THAT(
        written([](Settings& s) { s.arrangement = Arrangement::byWhoseTurn; }),
        ElementsAre(u"list.arrangement"));
    EXPECT_THAT(
        written([](Settings& s) { s.pollingInterval = PollingInterval::oneHour; }),
        ElementsAre(u"polling.interval"));
    EXPECT_THAT(
        written([](Settings& s) { s.projectDirectory = "/src"; }),
        ElementsAre(u"editor.projectDirectory"));
    EXPECT_THAT(
        written([](Settings& s) { s.unblockedNotificationsEnabled = true; }),
        ElementsAre(u"notifications.unblocked"));
    EXPECT_THAT(
        written([](Settings& s) { s.newPullRequestNotificationsEnabled = true; }),
        ElementsAre(u"notifications.newPullRequests"));
    EXPECT_THAT(
        written([](Settings& s) { s.yourTurnNotificationsEnabled = true; }),
        ElementsAre(u"notifications.yourTurn"));
    EXPECT_THAT(
        written([](Settings& s) { s.isInvolvedExplained = true; }),
        ElementsAre(u"list.involvedExplained"));
    EXPECT_THAT(
        written([](Settings& s) { s.darkMode = true; }), ElementsAre(u"appearance.darkMode"));
    EXPECT_THAT(
        written([](Settings& s) { s.selectedRepositories = {"octo/tools"}; }),
        ElementsAre(u"filters.repositories", u"filters.repositoriesConfigured"));
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
    EXPECT_EQ(defaults.values.at(u"filters.status"_s), (QStringList{u"Draft"_s, u"Open"_s}));
    EXPECT_EQ(
        defaults.values.at(u"filters.checks"_s), (QStringList{u"Fail"_s, u"None"_s, u"Pending"_s}));
    EXPECT_EQ(
        defaults.values.at(u"filters.reviewStates"_s),
        (QStringList{u"Changes Requested"_s, u"None"_s}));
    EXPECT_EQ(
        defaults.values.at(u"filters.mergeability"_s),
        (QStringList{u"Conflicting"_s, u"Mergeable"_s}));
    EXPECT_EQ(defaults.values.at(u"filters.reviewers"_s), u"Any"_s);
    EXPECT_EQ(defaults.values.at(u"list.arrangement"_s), u"By Whose Turn"_s);
    EXPECT_EQ(defaults.values.at(u"polling.interval"_s), 1800);
    EXPECT_EQ(defaults.values.at(u"editor.projectDirectory"_s), u"/home/octo/Проекты"_s);
    EXPECT_EQ(defaults.values.at(u"notifications.unblocked"_s), true);
    SettingsStore(defaults).change(
        [](Settings& settings) { settings.unblockedNotificationsEnabled = false; });
    EXPECT_EQ(defaults.values.at(u"notifications.unblocked"_s), false);
}

TEST(Settings, changeFromWhatAnotherProcessHasStored)
{
    MemoryDefaultsStore defaults;
    makeCurrent(defaults);
    SettingsStore store(defaults);
    store.load();
    defaults.beforeChange = [&] {
        defaults.values.insert_or_assign(u"filters.repositories"_s, QStringList{u"octo/web"_s});
        defaults.values.insert_or_assign(u"polling.interval"_s, 60);
    };
    const Settings settings = store.changeSelection(
        [](std::set<std::string>& selected) { selected.insert("octo/tools"); });
    EXPECT_THAT(settings.selectedRepositories, ElementsAre("octo/tools", "octo/web"));
    EXPECT_EQ(settings.pollingInterval, PollingInterval::oneMinute);
    EXPECT_EQ(
        defaults.values.at(u"filters.repositories"_s),
        (QStringList{u"octo/tools"_s, u"octo/web"_s}));
}

TEST(Settings, areNotResetWhenAnotherProcessHasJustConfiguredTheSelection)
{
    MemoryDefaultsStore defaults;
    SettingsStore store(defaults);
    defaults.beforeChange = [&] {
        defaults.values.insert_or_assign(u"filters.repositories"_s, QStringList{u"octo/web"_s});
        defaults.values.insert_or_assign(u"filters.repositoriesConfigured"_s, true);
    };
    EXPECT_FALSE(store.resetUnconfiguredSelection());
    EXPECT_EQ(defaults.values.at(u"filters.repositories"_s), QStringList{u"octo/web"_s});
}

TEST(Settings, areUnderstoodInAnOlderFormWithoutBeingWritten)
{
    MemoryDefaultsStore defaults;
    defaults.values = {
        {u"filters.checks"_s, QStringList{u"Pass"_s}}, {u"filters.schemaVersion"_s, 1}};
    EXPECT_THAT(
        SettingsStore(defaults).current().checks,
        UnorderedElementsAre(ChecksFilter::none, ChecksFilter::pass));
    EXPECT_THAT(defaults.writtenKeys, IsEmpty());
}

TEST(Settings, keepAStoredEmptyListEmpty)
{
    MemoryDefaultsStore defaults;
    makeCurrent(defaults);
    defaults.values.insert_or_assign(u"filters.status"_s, QStringList());
    defaults.values.insert_or_assign(u"filters.checks"_s, QVariant());
    defaults.values.insert_or_assign(u"filters.mergeability"_s, QVariant());
    const Settings settings = loadFrom(defaults);
    EXPECT_THAT(settings.statuses, IsEmpty());
    EXPECT_THAT(settings.checks, IsEmpty());
    EXPECT_THAT(settings.mergeabilities, IsEmpty());
    EXPECT_THAT(defaults.writtenKeys, IsEmpty());
}

}  // namespace
