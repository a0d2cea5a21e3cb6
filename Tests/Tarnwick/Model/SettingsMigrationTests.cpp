#include "Tarnwick/Model/SettingsMigration.h"

#include "Fakes/MemoryDefaultsStore.h"
#include "Tarnwick/Model/Settings.h"
#include "Tarnwick/Persistence/IniValue.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace {

using namespace Tarnwick;
using Fakes::MemoryDefaultsStore;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

Settings load(MemoryDefaultsStore& defaults)
{
    return SettingsStore(defaults).load();
}

/// What loading makes of one stored list of checks.
std::set<ChecksFilter> checksFrom(
    MemoryDefaultsStore& defaults, const char* list, const char* version)
{
    defaults.values = {{"filters.checks", list}, {"filters.schemaVersion", version}};
    return load(defaults).checks;
}

TEST(SettingsMigration, givesPassedChecksAtVersion1ThoseWithoutChecksToo)
{
    MemoryDefaultsStore defaults;
    EXPECT_THAT(
        checksFrom(defaults, "Pass", "1"),
        UnorderedElementsAre(ChecksFilter::none, ChecksFilter::pass));
    EXPECT_EQ(defaults.values.at("filters.checks"), "None, Pass");
    EXPECT_EQ(defaults.values.at("filters.schemaVersion"), "2");
}

TEST(SettingsMigration, leavesPassedChecksAtVersion2Alone)
{
    MemoryDefaultsStore defaults;
    EXPECT_THAT(checksFrom(defaults, "Pass", "2"), UnorderedElementsAre(ChecksFilter::pass));
    EXPECT_EQ(defaults.values.at("filters.checks"), "Pass");
}

TEST(SettingsMigration, givesFailedChecksAtVersion1PendingOnesToo)
{
    MemoryDefaultsStore defaults;
    EXPECT_THAT(
        checksFrom(defaults, "Fail", "1"),
        UnorderedElementsAre(ChecksFilter::pending, ChecksFilter::fail));
    EXPECT_EQ(defaults.values.at("filters.checks"), "Fail, Pending");
}

TEST(SettingsMigration, takesAMissingVersionForTheOldest)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{"filters.checks", "Pass"}};
    EXPECT_THAT(
        load(defaults).checks, UnorderedElementsAre(ChecksFilter::none, ChecksFilter::pass));
    EXPECT_EQ(defaults.values.at("filters.schemaVersion"), "2");
}

TEST(SettingsMigration, leavesALaterVersionAlone)
{
    MemoryDefaultsStore defaults;
    EXPECT_THAT(checksFrom(defaults, "Pass", "3"), UnorderedElementsAre(ChecksFilter::pass));
    EXPECT_EQ(defaults.values.at("filters.schemaVersion"), "3");
}

TEST(SettingsMigration, keepsAnEmptyListOfChecksAtVersion1Empty)
{
    MemoryDefaultsStore defaults;
    EXPECT_THAT(checksFrom(defaults, "@Empty()", "1"), IsEmpty());
    EXPECT_EQ(defaults.values.at("filters.checks"), "@Empty()");
}

TEST(SettingsMigration, takesAllChecksWhereNoneIsRecognised)
{
    MemoryDefaultsStore defaults;
    EXPECT_EQ(checksFrom(defaults, "Green", "2").size(), 4U);
    EXPECT_EQ(defaults.values.at("filters.checks"), "Fail, None, Pass, Pending");
}

TEST(SettingsMigration, takesOpenWhereNoStatusIsRecognised)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{"filters.status", "Closed, Merged"}};
    EXPECT_THAT(load(defaults).statuses, UnorderedElementsAre(StatusFilter::open));
    EXPECT_EQ(defaults.values.at("filters.status"), "Open");
}

TEST(SettingsMigration, dropsUnknownStatusesAndWritesTheRestInOrder)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{"filters.status", "Open, Closed, Draft"}};
    EXPECT_THAT(
        load(defaults).statuses, UnorderedElementsAre(StatusFilter::open, StatusFilter::draft));
    EXPECT_EQ(defaults.values.at("filters.status"), "Draft, Open");
}

TEST(SettingsMigration, doesNotWriteADefaultStatus)
{
    MemoryDefaultsStore defaults;
    load(defaults);
    EXPECT_THAT(defaults.writtenKeys, Not(Contains("filters.status")));
}

TEST(SettingsMigration, translatesTheOlderReviewQuery)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{"filters.reviewQuery", "review:changes_requested, is:open, review:none"}};
    EXPECT_THAT(
        load(defaults).reviewFilters,
        UnorderedElementsAre(ReviewFilter::changesRequested, ReviewFilter::none));
    EXPECT_EQ(defaults.values.at("filters.reviewStates"), "Changes Requested, None");
}

TEST(SettingsMigration, addsCommentedToTheThreeOlderReviewFilters)
{
    MemoryDefaultsStore defaults;
    defaults.values = {
        {"filters.reviewQuery", "review:approved, review:changes_requested, review:none"}};
    EXPECT_EQ(load(defaults).reviewFilters.size(), 4U);
    EXPECT_EQ(
        defaults.values.at("filters.reviewStates"), "Approved, Changes Requested, Commented, None");
}

TEST(SettingsMigration, addsCommentedToTheThreeStoredReviewFilters)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{"filters.reviewStates", "Approved, Changes Requested, None"}};
    EXPECT_EQ(load(defaults).reviewFilters.size(), 4U);
    EXPECT_EQ(
        defaults.values.at("filters.reviewStates"), "Approved, Changes Requested, Commented, None");
}

TEST(SettingsMigration, prefersStoredReviewFiltersToTheOlderQuery)
{
    MemoryDefaultsStore defaults;
    defaults.values = {
        {"filters.reviewStates", "@Empty()"}, {"filters.reviewQuery", "review:approved"}};
    EXPECT_THAT(load(defaults).reviewFilters, IsEmpty());
    EXPECT_THAT(defaults.writtenKeys, Not(Contains("filters.reviewStates")));
}

TEST(SettingsMigration, translatesTheOlderMergeableFlag)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{"filters.mergeable", "true"}, {"filters.mergeConflicts", "Conflicting"}};
    EXPECT_THAT(load(defaults).mergeabilities, UnorderedElementsAre(MergeabilityFilter::mergeable));
    EXPECT_EQ(defaults.values.at("filters.mergeability"), "Mergeable");
    defaults.values = {{"filters.mergeable", "false"}};
    EXPECT_THAT(
        load(defaults).mergeabilities,
        UnorderedElementsAre(MergeabilityFilter::conflicting, MergeabilityFilter::unknown));
    EXPECT_EQ(defaults.values.at("filters.mergeability"), "Conflicting, Unknown");
}

TEST(SettingsMigration, translatesTheOlderListOfMergeConflicts)
{
    using enum MergeabilityFilter;
    using SettingsMigration::mergeabilitiesFromOlderKeys;
    using List = std::vector<std::string>;
    const auto from = [](const List& list) {
        return mergeabilitiesFromOlderKeys(std::nullopt, list);
    };
    EXPECT_THAT(from({"Conflicting"}), UnorderedElementsAre(conflicting, unknown));
    EXPECT_THAT(from({"None"}), UnorderedElementsAre(mergeable, unknown));
    EXPECT_THAT(from({}), UnorderedElementsAre(mergeable, conflicting, unknown));
    EXPECT_THAT(
        from({"Conflicting", "None"}), UnorderedElementsAre(mergeable, conflicting, unknown));
    EXPECT_THAT(from({"Else"}), UnorderedElementsAre(mergeable, conflicting, unknown));
    EXPECT_THAT(
        mergeabilitiesFromOlderKeys(std::nullopt, std::nullopt),
        UnorderedElementsAre(mergeable, conflicting, unknown));
}

TEST(SettingsMigration, leavesTheOlderKeysWhereTheyAre)
{
    MemoryDefaultsStore defaults;
    defaults.values = {
        {"filters.mergeable", "true"},
        {"filters.mergeConflicts", "None"},
        {"filters.reviewQuery", "review:none"}};
    load(defaults);
    EXPECT_EQ(defaults.values.at("filters.mergeable"), "true");
    EXPECT_EQ(defaults.values.at("filters.mergeConflicts"), "None");
    EXPECT_EQ(defaults.values.at("filters.reviewQuery"), "review:none");
}

TEST(SettingsMigration, turnsTheOlderReviewerAllIntoAny)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{"filters.reviewers", "All"}};
    EXPECT_EQ(load(defaults).reviewerFilter, ReviewerFilter::any);
    EXPECT_EQ(defaults.values.at("filters.reviewers"), "Any");
}

TEST(SettingsMigration, takesAnyOtherReviewerForMyselfAndLeavesItStored)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{"filters.reviewers", "any"}};
    EXPECT_EQ(load(defaults).reviewerFilter, ReviewerFilter::myself);
    EXPECT_EQ(defaults.values.at("filters.reviewers"), "any");
}

/// A value that one of the versions, a user's editor or a foreign program may have left.
rc::Gen<std::string> anyStored()
{
    const auto piece = rc::gen::element<std::string>(
        "Open",
        "Draft",
        "Closed",
        "Pass",
        "Fail",
        "None",
        "Approved",
        "Changes Requested",
        "Mergeable",
        "Conflicting",
        "Unknown",
        "review:approved",
        "review:none",
        "All",
        "Any",
        "true",
        "0",
        "60",
        "");
    const auto list =
        rc::gen::map(rc::gen::container<std::vector<std::string>>(piece), &IniValue::encodeList);
    return rc::gen::oneOf(
        list,
        rc::gen::element<std::string>("-1", "2", "3", "true", "", "@Date(2024-05-01T12:00:00Z)"));
}

RC_GTEST_PROP(SettingsMigration, changesNothingTheSecondTime, ())
{
    MemoryDefaultsStore defaults;
    for (const char* const key :
         {"filters.status",
          "filters.checks",
          "filters.reviewStates",
          "filters.mergeability",
          "filters.reviewers",
          "filters.repositories",
          "filters.schemaVersion",
          "polling.interval",
          "filters.reviewQuery",
          "filters.mergeable",
          "filters.mergeConflicts"}) {
        if (*rc::gen::arbitrary<bool>()) {
            defaults.values.insert_or_assign(key, *anyStored());
        }
    }
    const Settings first = load(defaults);
    const auto stored = defaults.values;
    defaults.writtenKeys.clear();
    RC_ASSERT(load(defaults) == first);
    RC_ASSERT(defaults.writtenKeys.empty());
    RC_ASSERT(defaults.values == stored);
}

}  // namespace
