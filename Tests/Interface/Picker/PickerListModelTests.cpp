#include "Tarnwick/Interface/Picker/PickerListModel.h"

#include "Picker/PickerFixture.h"
#include "Support/Follower.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <rapidcheck/gtest.h>

namespace Tarnwick {
namespace {

using namespace TestSupport;

std::vector<RepositorySummary> named(const std::vector<std::string>& names)
{
    std::vector<RepositorySummary> repositories;
    for (const std::string& name : names) {
        repositories.push_back(repositoryOf(name));
    }
    return repositories;
}

class PickerListModelTests : public testing::Test {
protected:
    Qt::CheckState stateOf(int row) const
    {
        return static_cast<Qt::CheckState>(model.index(row).data(Qt::CheckStateRole).toInt());
    }

    PickerListModel model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(PickerListModelTests, listsEachOwnerBeforeItsRepositories)
{
    model.setRepositories(named({"b/two", "a/one-10", "b/one", "a/one-9"}));
    EXPECT_THAT(textsOf(model), ElementsAre("a", "one-9", "one-10", "b", "one", "two"));
    EXPECT_TRUE(model.row(0).isOwner());
    EXPECT_FALSE(model.row(1).isOwner());
}

TEST_F(PickerListModelTests, aRepositoryGivenTwiceIsListedOnce)
{
    model.setRepositories({repositoryOf("a/one", "public"), repositoryOf("a/one", "private")});
    EXPECT_THAT(textsOf(model), ElementsAre("a", "one"));
    EXPECT_EQ(model.row(1).repository->details, QStringLiteral("Public"));
}

TEST_F(PickerListModelTests, aNameWithoutOwnerIsItsOwn)
{
    model.setRepositories(named({"tools"}));
    EXPECT_THAT(textsOf(model), ElementsAre("tools", "tools"));
}

TEST_F(PickerListModelTests, anOwnerGroupWhoseRepositoriesAreAllSelectedOffersUnselectAll)
{
    model.setRepositories(named({"a/one", "a/two"}));
    model.setSelection({"a/one"});
    EXPECT_EQ(
        model.index(0).data(Qt::AccessibleTextRole).toString(), QStringLiteral("a, Select All"));
    EXPECT_EQ(stateOf(0), Qt::PartiallyChecked);
    model.setSelection({"a/one", "a/two", "b/gone"});
    EXPECT_EQ(
        model.index(0).data(Qt::AccessibleTextRole).toString(), QStringLiteral("a, Unselect All"));
    EXPECT_EQ(stateOf(0), Qt::Checked);
    model.setSelection({});
    EXPECT_EQ(stateOf(0), Qt::Unchecked);
}

TEST_F(PickerListModelTests, rowsHaveNamesForScreenReaders)
{
    model.setRepositories({repositoryOf("a/one", "private", "C++")});
    EXPECT_EQ(
        model.index(1).data(Qt::AccessibleTextRole).toString(),
        QStringLiteral("a/one, Private, C++"));
    EXPECT_TRUE(model.index(1).flags().testFlag(Qt::ItemIsUserCheckable));
}

TEST_F(PickerListModelTests, aChangedSelectionTouchesOnlyTheRowsItChanges)
{
    model.setRepositories(named({"a/one", "a/two", "b/one"}));
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    model.setSelection({"a/two"});
    ASSERT_EQ(changes.count(), 2);
    // The owner's row, whose count changes, and the repository's.
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 0);
    EXPECT_EQ(changes[0][1].toModelIndex().row(), 0);
    EXPECT_EQ(changes[1][0].toModelIndex().row(), 2);
    EXPECT_EQ(changes[1][1].toModelIndex().row(), 2);
    changes.clear();
    model.setSelection({"a/two"});
    EXPECT_TRUE(changes.isEmpty());
}

TEST_F(PickerListModelTests, allRowsThatChangeTogetherAreAnnouncedTogether)
{
    model.setRepositories(named({"a/one", "a/two", "b/one"}));
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    model.setSelection({"a/one", "a/two", "b/one"});
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 0);
    EXPECT_EQ(changes[0][1].toModelIndex().row(), 4);
}

TEST_F(PickerListModelTests, aRefreshTakesInOnlyWhatIsNew)
{
    model.setRepositories(named({"a/one", "a/two", "b/one"}));
    const QPersistentModelIndex kept(model.index(2));
    const Follower follower(model);
    model.setRepositories(named({"a/first", "a/two", "c/one"}));
    EXPECT_THAT(textsOf(model), ElementsAre("a", "first", "two", "c", "one"));
    EXPECT_EQ(follower.texts, textsOf(model));
    EXPECT_EQ(follower.resets, 0);
    EXPECT_EQ(kept.row(), 2);
    EXPECT_EQ(kept.data().toString(), QStringLiteral("two"));
}

TEST_F(PickerListModelTests, theSameListAgainChangesNothing)
{
    model.setRepositories(named({"a/one", "b/one"}));
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy insertions(&model, &QAbstractItemModel::rowsInserted);
    QSignalSpy removals(&model, &QAbstractItemModel::rowsRemoved);
    model.setRepositories(named({"b/one", "a/one"}));
    EXPECT_TRUE(changes.isEmpty());
    EXPECT_TRUE(insertions.isEmpty());
    EXPECT_TRUE(removals.isEmpty());
}

TEST_F(PickerListModelTests, newDetailsChangeTheirRow)
{
    model.setRepositories({repositoryOf("a/one", "public"), repositoryOf("a/two", "public")});
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    model.setRepositories({repositoryOf("a/one", "public"), repositoryOf("a/two", "private")});
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 2);
    EXPECT_EQ(model.row(2).repository->details, QStringLiteral("Private"));
    EXPECT_TRUE(model.row(2).repository->isPrivate);
}

TEST_F(PickerListModelTests, repositoriesThatComeLaterAreSelectedAsTheSelectionSays)
{
    model.setSelection({"a/one"});
    model.setRepositories(named({"a/one", "a/two"}));
    EXPECT_EQ(stateOf(1), Qt::Checked);
    EXPECT_EQ(stateOf(2), Qt::Unchecked);
}

TEST_F(PickerListModelTests, findsEveryWordInTheFullNameWithoutRegardToLetterCase)
{
    model.setRepositories(named({"Fenland/Capstan", "fenland/harbour", "northmere/capstan"}));
    model.setFindText(QStringLiteral("capstan FEN"));
    EXPECT_THAT(textsOf(model), ElementsAre("Fenland", "Capstan"));
    model.setFindText(QStringLiteral("d/h"));
    EXPECT_THAT(textsOf(model), ElementsAre("fenland", "harbour"));
    model.setFindText(QStringLiteral("nowhere"));
    EXPECT_THAT(textsOf(model), IsEmpty());
    EXPECT_FALSE(model.isEmpty());
    model.setFindText(QStringLiteral("  "));
    EXPECT_FALSE(model.isFinding());
    EXPECT_EQ(model.rowCount(), 6);
}

TEST_F(PickerListModelTests, whileFindingAnOwnerCountsWhatIsShown)
{
    model.setRepositories(named({"a/one", "a/two"}));
    model.setSelection({"a/two"});
    EXPECT_FALSE(model.row(0).owner->allSelected());
    model.setFindText(QStringLiteral("two"));
    EXPECT_TRUE(model.row(0).owner->allSelected());
    model.setFindText({});
    EXPECT_FALSE(model.row(0).owner->allSelected());
}

TEST_F(PickerListModelTests, aTickedBoxIsARequest)
{
    model.setRepositories(named({"a/one", "a/two"}));
    std::vector<std::string> toggled;
    QObject::connect(
        &model, &PickerListModel::toggleRequested, &model, [&](const std::string& name) {
            toggled.push_back(name);
        });
    // Nobody grants it, so the box stays as it is.
    EXPECT_FALSE(model.setData(model.index(2), Qt::Checked, Qt::CheckStateRole));
    EXPECT_THAT(toggled, ElementsAre("a/two"));
    EXPECT_EQ(stateOf(2), Qt::Unchecked);
}

TEST_F(PickerListModelTests, anOwnersBoxAsksForAllThatIsShownOfIt)
{
    model.setRepositories(named({"a/one", "a/two", "b/one"}));
    QObject::connect(
        &model,
        &PickerListModel::selectionRequested,
        &model,
        [&](const std::vector<std::string>& names, bool selected) {
            model.setSelection(
                selected ? std::set<std::string>(names.begin(), names.end())
                         : std::set<std::string>());
        });
    EXPECT_TRUE(model.setData(model.index(0), Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(stateOf(1), Qt::Checked);
    EXPECT_EQ(stateOf(2), Qt::Checked);
    EXPECT_EQ(stateOf(4), Qt::Unchecked);
}

/// Names of few owners and few letters, so that texts to find match some of them.
rc::Gen<std::vector<std::string>> anyNames()
{
    const auto name = rc::gen::map(
        rc::gen::pair(
            rc::gen::element<std::string>("a", "b", "B", "ab"),
            rc::gen::container<std::string>(rc::gen::element('a', 'b', 'A', '1', '0'))),
        [](const std::pair<std::string, std::string>& parts) {
            return parts.first + "/x" + parts.second;
        });
    // The tester looks at all rows after each change, which makes long lists slow.
    constexpr int longest = 12;
    return rc::gen::resize(longest, rc::gen::container<std::vector<std::string>>(name));
}

RC_GTEST_PROP(PickerListModelProperties, whatIsAnnouncedLeadsToTheNewRows, ())
{
    PickerListModel model;
    const QAbstractItemModelTester tester(
        &model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setRepositories(named(*anyNames()));
    const Follower follower(model);
    constexpr std::size_t steps = 4;
    for (const std::string& text : *rc::gen::container<std::vector<std::string>>(
             steps,
             rc::gen::element<std::string>(
                 "", "a", "ab", "b/", "1 a", "0", "/x1", "nothing has this"))) {
        model.setFindText(QString::fromStdString(text));
        RC_ASSERT(follower.texts == textsOf(model));
        model.setRepositories(named(*anyNames()));
        RC_ASSERT(follower.texts == textsOf(model));
    }
    RC_ASSERT(follower.resets == 0);
}

RC_GTEST_PROP(PickerListModelProperties, onlyTheTextAndTheListDecideWhatIsShown, ())
{
    const std::vector<RepositorySummary> repositories = named(*anyNames());
    PickerListModel model;
    model.setRepositories(named(*anyNames()));
    model.setFindText(QStringLiteral("a1"));
    model.setRepositories(repositories);
    model.setFindText(QStringLiteral("a b"));

    PickerListModel fresh;
    fresh.setFindText(QStringLiteral("a b"));
    fresh.setRepositories(repositories);
    RC_ASSERT(textsOf(model) == textsOf(fresh));
    RC_ASSERT(model.shownNames() == fresh.shownNames());
}

}  // namespace
}  // namespace Tarnwick
