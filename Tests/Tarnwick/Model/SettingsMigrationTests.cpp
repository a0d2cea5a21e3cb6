#include "Tarnwick/Model/SettingsMigration.h"

#include "Fakes/MemoryDefaultsStore.h"
#include "Tarnwick/Model/Settings.h"
#include "Tarnwick/Persistence/IniValue.h"

#include <rapidcheck/gtest.h>

namespace {

using namespace TestSupport;

class MigratedSettings : public testing::Test {
protected:
    Settings load() { return SettingsStore(defaults).load(); }

    const std::string& stored(const char* key) const { return defaults.values.at(key); }

    MemoryDefaultsStore defaults;
};

struct StoredChecks {
    const char* name;
    const char* list;
    const char* version;  ///< "" for none.
    std::set<ChecksFilter> loaded;
    const char* newList;
    const char* newVersion;
};

TEST_F(MigratedSettings, haveTheChecksThatTheirVersionMeant)
{
    using enum ChecksFilter;
    const std::vector<StoredChecks> cases{
        {"passed ones with those without checks", "Pass", "1", {none, pass}, "None, Pass", "2"},
        {"passed ones of version 2 alone", "Pass", "2", {pass}, "Pass", "2"},
        {"failed ones with pending ones", "Fail", "1", {pending, fail}, "Fail, Pending", "2"},
        {"a missing version is the oldest", "Pass", "", {none, pass}, "None, Pass", "2"},
        {"a later version stays", "Pass", "3", {pass}, "Pass", "3"},
        {"an empty list stays empty", "@Empty()", "1", {}, "@Empty()", "2"},
        {"all where none is recognised",
         "Green",
         "2",
         {none, pending, pass, fail},
         "Fail, None, Pass, Pending",
         "2"}};
    for (const auto& [name, list, version, loaded, newList, newVersion] : cases) {
        SCOPED_TRACE(name);
        defaults.values = {{"filters.checks", list}};
        if (*version != '\0') {
            defaults.values.insert_or_assign("filters.schemaVersion", version);
        }
        EXPECT_EQ(load().checks, loaded);
        EXPECT_EQ(stored("filters.checks"), newList);
        EXPECT_EQ(stored("filters.schemaVersion"), newVersion);
    }
}

TEST_F(MigratedSettings, takesOpenWhereNoStatusIsRecognised)
{
    defaults.values = {{"filters.status", "Closed, Merged"}};
    EXPECT_THAT(load().statuses, UnorderedElementsAre(StatusFilter::open));
    EXPECT_EQ(stored("filters.status"), "Open");
}

TEST_F(MigratedSettings, dropsUnknownStatusesAndWritesTheRestInOrder)
{
    defaults.values = {{"filters.status", "Open, Closed, Draft"}};
    EXPECT_THAT(load().statuses, UnorderedElementsAre(StatusFilter::open, StatusFilter::draft));
    EXPECT_EQ(stored("filters.status"), "Draft, Open");
}

TEST_F(MigratedSettings, doesNotWriteADefaultStatus)
{
    load();
    EXPECT_THAT(defaults.writtenKeys, Not(Contains("filters.status")));
}

TEST_F(MigratedSettings, translatesTheOlderReviewQuery)
{
    defaults.values = {{"filters.reviewQuery", "review:changes_requested, is:open, review:none"}};
    EXPECT_THAT(
        load().reviewFilters,
        UnorderedElementsAre(ReviewFilter::changesRequested, ReviewFilter::none));
    EXPECT_EQ(stored("filters.reviewStates"), "Changes Requested, None");
}

TEST_F(MigratedSettings, addsCommentedToTheThreeOlderReviewFilters)
{
    defaults.values = {
        {"filters.reviewQuery", "review:approved, review:changes_requested, review:none"}};
    EXPECT_EQ(load().reviewFilters.size(), 4U);
    EXPECT_EQ(stored("filters.reviewStates"), "Approved, Changes Requested, Commented, None");
}

TEST_F(MigratedSettings, addsCommentedToTheThreeStoredReviewFilters)
{
    defaults.values = {{"filters.reviewStates", "Approved, Changes Requested, None"}};
    EXPECT_EQ(load().reviewFilters.size(), 4U);
    EXPECT_EQ(stored("filters.reviewStates"), "Approved, Changes Requested, Commented, None");
}

TEST_F(MigratedSettings, prefersStoredReviewFiltersToTheOlderQuery)
{
    defaults.values = {
        {"filters.reviewStates", "@Empty()"}, {"filters.reviewQuery", "review:approved"}};
    EXPECT_THAT(load().reviewFilters, IsEmpty());
    EXPECT_THAT(defaults.writtenKeys, Not(Contains("filters.reviewStates")));
}

TEST_F(MigratedSettings, translatesTheOlderMergeableFlag)
{
    defaults.values = {{"filters.mergeable", "true"}, {"filters.mergeConflicts", "Conflicting"}};
    EXPECT_THAT(load().mergeabilities, UnorderedElementsAre(MergeabilityFilter::mergeable));
    EXPECT_EQ(stored("filters.mergeability"), "Mergeable");
    defaults.values = {{"filters.mergeable", "false"}};
    EXPECT_THAT(
        load().mergeabilities,
        UnorderedElementsAre(MergeabilityFilter::conflicting, MergeabilityFilter::unknown));
    EXPECT_EQ(stored("filters.mergeability"), "Conflicting, Unknown");
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

TEST_F(MigratedSettings, leavesTheOlderKeysWhereTheyAre)
{
    defaults.values = {
        {"filters.mergeable", "true"},
        {"filters.mergeConflicts", "None"},
        {"filters.reviewQuery", "review:none"}};
    load();
    EXPECT_EQ(stored("filters.mergeable"), "true");
    EXPECT_EQ(stored("filters.mergeConflicts"), "None");
    EXPECT_EQ(stored("filters.reviewQuery"), "review:none");
}

TEST_F(MigratedSettings, turnsTheOlderReviewerAllIntoAny)
{
    defaults.values = {{"filters.reviewers", "All"}};
    EXPECT_EQ(load().reviewerFilter, ReviewerFilter::any);
    EXPECT_EQ(stored("filters.reviewers"), "Any");
}

TEST_F(MigratedSettings, takesAnyOtherReviewerForMyselfAndLeavesItStored)
{
    defaults.values = {{"filters.reviewers", "any"}};
    EXPECT_EQ(load().reviewerFilter, ReviewerFilter::myself);
    EXPECT_EQ(stored("filters.reviewers"), "any");
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

RC_GTEST_FIXTURE_PROP(MigratedSettings, changeNothingTheSecondTime, ())
{
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
    const Settings first = load();
    const auto stored = defaults.values;
    defaults.writtenKeys.clear();
    RC_ASSERT(load() == first);
    RC_ASSERT(defaults.writtenKeys.empty());
    RC_ASSERT(defaults.values == stored);
}

}  // namespace
