#include "Tarnwick/Model/Settings.h"

#include "Fakes/MemoryDefaultsStore.h"

#include <QStringList>

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

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

}  // namespace
