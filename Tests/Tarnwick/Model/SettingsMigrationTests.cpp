#include "Tarnwick/Model/SettingsMigration.h"

#include "Fakes/MemoryDefaultsStore.h"
#include "Tarnwick/Model/Settings.h"

#include <QStringList>

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace Tarnwick;
using Fakes::MemoryDefaultsStore;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::UnorderedElementsAre;

QStringList texts(std::initializer_list<const char*> list)
{
    QStringList texts;
    for (const char* const text : list) {
        texts.append(QString::fromUtf8(text));
    }
    return texts;
}

Settings load(MemoryDefaultsStore& defaults)
{
    return SettingsStore(defaults).load();
}

/// What loading makes of one stored list of checks.
std::set<ChecksFilter> checksFrom(MemoryDefaultsStore& defaults, const QVariant& list, int version)
{
    defaults.values = {{u"filters.checks"_s, list}, {u"filters.schemaVersion"_s, version}};
    return load(defaults).checks;
}

TEST(SettingsMigration, givesPassedChecksAtVersion1ThoseWithoutChecksToo)
{
    MemoryDefaultsStore defaults;
    EXPECT_THAT(
        checksFrom(defaults, texts({"Pass"}), 1),
        UnorderedElementsAre(ChecksFilter::none, ChecksFilter::pass));
    EXPECT_EQ(defaults.values.at(u"filters.checks"_s), texts({"None", "Pass"}));
    EXPECT_EQ(defaults.values.at(u"filters.schemaVersion"_s), 2);
}

TEST(SettingsMigration, leavesPassedChecksAtVersion2Alone)
{
    MemoryDefaultsStore defaults;
    EXPECT_THAT(checksFrom(defaults, texts({"Pass"}), 2), UnorderedElementsAre(ChecksFilter::pass));
    EXPECT_EQ(defaults.values.at(u"filters.checks"_s), texts({"Pass"}));
}

TEST(SettingsMigration, givesFailedChecksAtVersion1PendingOnesToo)
{
    MemoryDefaultsStore defaults;
    EXPECT_THAT(
        checksFrom(defaults, texts({"Fail"}), 1),
        UnorderedElementsAre(ChecksFilter::pending, ChecksFilter::fail));
    EXPECT_EQ(defaults.values.at(u"filters.checks"_s), texts({"Fail", "Pending"}));
}

TEST(SettingsMigration, takesAMissingVersionForTheOldest)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{u"filters.checks"_s, texts({"Pass"})}};
    EXPECT_THAT(
        load(defaults).checks, UnorderedElementsAre(ChecksFilter::none, ChecksFilter::pass));
    EXPECT_EQ(defaults.values.at(u"filters.schemaVersion"_s), 2);
}

TEST(SettingsMigration, leavesALaterVersionAlone)
{
    MemoryDefaultsStore defaults;
    EXPECT_THAT(checksFrom(defaults, texts({"Pass"}), 3), UnorderedElementsAre(ChecksFilter::pass));
    EXPECT_EQ(defaults.values.at(u"filters.schemaVersion"_s), 3);
}

TEST(SettingsMigration, keepsAnEmptyListOfChecksAtVersion1Empty)
{
    MemoryDefaultsStore defaults;
    EXPECT_THAT(checksFrom(defaults, QStringList(), 1), IsEmpty());
    EXPECT_EQ(defaults.values.at(u"filters.checks"_s), QStringList());
}

TEST(SettingsMigration, takesAllChecksWhereNoneIsRecognised)
{
    MemoryDefaultsStore defaults;
    EXPECT_EQ(checksFrom(defaults, texts({"Green"}), 2).size(), 4U);
    EXPECT_EQ(defaults.values.at(u"filters.checks"_s), texts({"Fail", "None", "Pass", "Pending"}));
}

TEST(SettingsMigration, takesOpenWhereNoStatusIsRecognised)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{u"filters.status"_s, texts({"Closed", "Merged"})}};
    EXPECT_THAT(load(defaults).statuses, UnorderedElementsAre(StatusFilter::open));
    EXPECT_EQ(defaults.values.at(u"filters.status"_s), texts({"Open"}));
}

TEST(SettingsMigration, dropsUnknownStatusesAndWritesTheRestInOrder)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{u"filters.status"_s, texts({"Open", "Closed", "Draft"})}};
    EXPECT_THAT(
        load(defaults).statuses, UnorderedElementsAre(StatusFilter::open, StatusFilter::draft));
    EXPECT_EQ(defaults.values.at(u"filters.status"_s), texts({"Draft", "Open"}));
}

TEST(SettingsMigration, doesNotWriteADefaultStatus)
{
    MemoryDefaultsStore defaults;
    load(defaults);
    EXPECT_THAT(defaults.writtenKeys, Not(Contains(u"filters.status")));
}

TEST(SettingsMigration, translatesTheOlderReviewQuery)
{
    MemoryDefaultsStore defaults;
    defaults.values = {
        {u"filters.reviewQuery"_s, texts({"review:changes_requested", "is:open", "review:none"})}};
    EXPECT_THAT(
        load(defaults).reviewFilters,
        UnorderedElementsAre(ReviewFilter::changesRequested, ReviewFilter::none));
    EXPECT_EQ(defaults.values.at(u"filters.reviewStates"_s), texts({"Changes Requested", "None"}));
}

TEST(SettingsMigration, addsCommentedToTheThreeOlderReviewFilters)
{
    MemoryDefaultsStore defaults;
    defaults.values = {
        {u"filters.reviewQuery"_s,
         texts({"review:approved", "review:changes_requested", "review:none"})}};
    EXPECT_EQ(load(defaults).reviewFilters.size(), 4U);
    EXPECT_EQ(
        defaults.values.at(u"filters.reviewStates"_s),
        texts({"Approved", "Changes Requested", "Commented", "None"}));
}

TEST(SettingsMigration, addsCommentedToTheThreeStoredReviewFilters)
{
    MemoryDefaultsStore defaults;
    defaults.values = {
        {u"filters.reviewStates"_s, texts({"Approved", "Changes Requested", "None"})}};
    EXPECT_EQ(load(defaults).reviewFilters.size(), 4U);
    EXPECT_EQ(
        defaults.values.at(u"filters.reviewStates"_s),
        texts({"Approved", "Changes Requested", "Commented", "None"}));
}

TEST(SettingsMigration, prefersStoredReviewFiltersToTheOlderQuery)
{
    MemoryDefaultsStore defaults;
    defaults.values = {
        {u"filters.reviewStates"_s, QStringList()},
        {u"filters.reviewQuery"_s, texts({"review:approved"})}};
    EXPECT_THAT(load(defaults).reviewFilters, IsEmpty());
    EXPECT_THAT(defaults.writtenKeys, Not(Contains(u"filters.reviewStates")));
}

TEST(SettingsMigration, translatesTheOlderMergeableFlag)
{
    MemoryDefaultsStore defaults;
    defaults.values = {
        {u"filters.mergeable"_s, true}, {u"filters.mergeConflicts"_s, texts({"Conflicting"})}};
    EXPECT_THAT(load(defaults).mergeabilities, UnorderedElementsAre(MergeabilityFilter::mergeable));
    EXPECT_EQ(defaults.values.at(u"filters.mergeability"_s), texts({"Mergeable"}));
    defaults.values = {{u"filters.mergeable"_s, false}};
    EXPECT_THAT(
        load(defaults).mergeabilities,
        UnorderedElementsAre(MergeabilityFilter::conflicting, MergeabilityFilter::unknown));
    EXPECT_EQ(defaults.values.at(u"filters.mergeability"_s), texts({"Conflicting", "Unknown"}));
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
        {u"filters.mergeable"_s, true},
        {u"filters.mergeConflicts"_s, texts({"None"})},
        {u"filters.reviewQuery"_s, texts({"review:none"})}};
    load(defaults);
    EXPECT_EQ(defaults.values.at(u"filters.mergeable"_s), true);
    EXPECT_EQ(defaults.values.at(u"filters.mergeConflicts"_s), texts({"None"}));
    EXPECT_EQ(defaults.values.at(u"filters.reviewQuery"_s), texts({"review:none"}));
}

TEST(SettingsMigration, turnsTheOlderReviewerAllIntoAny)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{u"filters.reviewers"_s, u"All"_s}};
    EXPECT_EQ(load(defaults).reviewerFilter, ReviewerFilter::any);
    EXPECT_EQ(defaults.values.at(u"filters.reviewers"_s), u"Any"_s);
}

TEST(SettingsMigration, takesAnyOtherReviewerForMyselfAndLeavesItStored)
{
    MemoryDefaultsStore defaults;
    defaults.values = {{u"filters.reviewers"_s, u"any"_s}};
    EXPECT_EQ(load(defaults).reviewerFilter, ReviewerFilter::myself);
    EXPECT_EQ(defaults.values.at(u"filters.reviewers"_s), u"any"_s);
}

/// A value that one of the versions, a user's editor or a foreign program may have left.
rc::Gen<QVariant> anyStored()
{
    const auto piece = rc::gen::element<const char*>(
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
    const auto text = rc::gen::map(piece, [](const char* each) { return QString::fromUtf8(each); });
    const auto list = rc::gen::map(
        rc::gen::container<std::vector<QString>>(text), [](const std::vector<QString>& each) {
            return QVariant(QStringList(each.begin(), each.end()));
        });
    return rc::gen::oneOf(
        list,
        rc::gen::map(text, [](const QString& each) { return QVariant(each); }),
        rc::gen::map(rc::gen::inRange(-1, 4), [](int each) { return QVariant(each); }),
        rc::gen::element(
            QVariant(true), QVariant(false), QVariant(), QVariant(QByteArray("\x01"))));
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
            defaults.values.insert_or_assign(QString::fromUtf8(key), *anyStored());
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
