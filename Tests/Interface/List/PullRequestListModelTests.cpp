#include "Tarnwick/Interface/List/PullRequestListModel.h"

#include "List/SampleRows.h"
#include "Support/Follower.h"
#include "Support/PullRequests.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <algorithm>
#include <iterator>
#include <memory>
#include <numeric>
#include <random>

#include <rapidcheck/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace TestSupport;

ListedRow listed(std::int64_t number)
{
    return listedRow({makePullRequest(number), 0, false, {}});
}

std::vector<ListedRow> listed(const std::vector<std::int64_t>& numbers)
{
    std::vector<ListedRow> rows;
    for (const std::int64_t number : numbers) {
        rows.push_back(listed(number));
    }
    return rows;
}

class PullRequestListModelTests : public testing::Test {
protected:
    std::vector<std::int64_t> shown() const
    {
        std::vector<std::int64_t> numbers;
        for (int row = 0; row < model.rowCount(); ++row) {
            numbers.push_back(model.content(row).pullRequest().id.number);
        }
        return numbers;
    }

    PullRequestListModel model{[] { return date("2024-05-01T15:00:00Z"); }};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(PullRequestListModelTests, aNewListIsTakenInWithoutAReset)
{
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    model.setRows(listed({1, 2, 3, 4}));
    model.setRows(listed({4, 2, 5, 1}));
    EXPECT_THAT(shown(), ElementsAre(4, 2, 5, 1));
    EXPECT_THAT(resets, IsEmpty());
}

TEST_F(PullRequestListModelTests, theSameListChangesNothing)
{
    model.setRows(listed({1, 2, 3}));
    const QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    const QSignalSpy layouts(&model, &QAbstractItemModel::layoutChanged);
    model.setRows(listed({1, 2, 3}));
    EXPECT_THAT(changes, IsEmpty());
    EXPECT_THAT(layouts, IsEmpty());
}

TEST_F(PullRequestListModelTests, aSelectedRowStaysSelectedWhereverItGoes)
{
    model.setRows(listed({1, 2, 3}));
    const QPersistentModelIndex selected = model.index(1);
    model.setRows(listed({7, 3, 8, 2}));
    EXPECT_EQ(selected.row(), 3);
    EXPECT_EQ(model.indexOf(makePullRequest(2).id).row(), 3);
    EXPECT_FALSE(model.indexOf(makePullRequest(1).id).isValid());
}

TEST_F(PullRequestListModelTests, onlyRowsThatSaySomethingElseAreChanged)
{
    model.setRows(listed({1, 2, 3}));
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    std::vector<ListedRow> rows = listed({1, 2, 3});
    rows[1].isVisited = true;
    model.setRows(rows);
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(changes[0][1].toModelIndex().row(), 1);
    EXPECT_TRUE(model.content(1).isVisited());
}

TEST_F(PullRequestListModelTests, keepsNoRowsOfListsBefore)
{
    std::vector<ListedRow> before = listed({1, 2, 3});
    std::vector<std::weak_ptr<const PullRequestRow>> old;
    std::ranges::transform(
        before, std::back_inserter(old), [](const ListedRow& listed) { return listed.row; });
    model.setRows(std::move(before));
    before.clear();
    std::vector<ListedRow> after = listed({4, 2, 3});
    own(after[2]).pullRequest.title = "Fix login";
    model.setRows(std::move(after));
    EXPECT_TRUE(std::ranges::all_of(old, [](const auto& row) { return row.expired(); }));
    EXPECT_THAT(shown(), ElementsAre(4, 2, 3));
    EXPECT_EQ(model.content(2).title(), u"Fix login"_s);
}

TEST_F(PullRequestListModelTests, aRowsAccessibleTextIsItsSentence)
{
    ListedRow row = listed(1);
    own(row).pullRequest.title = "Fix login";
    own(row).pullRequest.mergeability = PullRequestMergeability::conflicting;
    own(row).pullRequest.reviewState = ReviewState::changesRequested;
    own(row).pullRequest.checks = {2, 3, 0};
    model.setRows({row});
    const QModelIndex index = model.index(0);
    EXPECT_EQ(
        index.data(Qt::AccessibleTextRole).toString(),
        u"Fix login, Open pull request, merge conflict, Changes requested, 2/3 checks"_s);
    EXPECT_EQ(
        index.data(Qt::AccessibleDescriptionRole).toString(),
        u"octo/tools #1 · \u2068octo\u2069 · 3h"_s);
    EXPECT_EQ(index.data(Qt::DisplayRole).toString(), u"Fix login"_s);
}

TEST_F(PullRequestListModelTests, aRowThatGetsToKnowItsNamesChangesAndSaysThem)
{
    std::vector<ListedRow> rows = listed({1, 2});
    own(rows[1]).pullRequest.checks = {.completed = 1, .total = 2, .failed = 1};
    model.setRows(rows);
    PullRequestDetails details;
    details.failedChecks = {"lint"};
    rows[1].details = std::make_shared<const PullRequestDetails>(details);
    const QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    model.setRows(rows);
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(
        model.index(1).data(Qt::AccessibleDescriptionRole).toString(),
        u"octo/tools #2 · \u2068octo\u2069 · 3h. 1 of 2 passed. Failed: \u2068lint\u2069"_s);
    // The same names in another place are no change.
    rows[1].details = std::make_shared<const PullRequestDetails>(details);
    model.setRows(rows);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(PullRequestListModelTests, aRowsWarningComesFirstInItsDescription)
{
    ListedRow row = listed(1);
    own(row).warning = "Ambiguous base branch";
    model.setRows({row});
    EXPECT_EQ(
        model.index(0).data(Qt::AccessibleDescriptionRole).toString(),
        u"Ambiguous base branch. octo/tools #1 · \u2068octo\u2069 · 3h"_s);
}

TEST_F(PullRequestListModelTests, findsInTitlesRepositoriesAuthorsAndBranches)
{
    std::vector<ListedRow> rows = listed({1, 2, 3, 4, 5});
    own(rows[0]).pullRequest.title = "Keep the tide table";
    own(rows[1]).pullRequest.id.repository = "saltmarsh/tidewatch";
    own(rows[2]).pullRequest.author = "tideline";
    own(rows[3]).pullRequest.head.name = "feature/low-tide";
    model.setRows(rows);
    model.setFindText(u"TIDE"_s);
    EXPECT_THAT(shown(), ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(model.totalCount(), 5);
    EXPECT_TRUE(model.isFinding());
    model.setFindText(QString());
    EXPECT_THAT(shown(), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_FALSE(model.isFinding());
}

TEST_F(PullRequestListModelTests, everyWordMustMatchThoughNotInOneField)
{
    std::vector<ListedRow> rows = listed({1, 2});
    own(rows[0]).pullRequest.title = "Retry uploads";
    own(rows[0]).pullRequest.author = "ines.duarte";
    own(rows[1]).pullRequest.title = "Retry downloads";
    model.setRows(rows);
    model.setFindText(u"  ines   retry "_s);
    EXPECT_THAT(shown(), ElementsAre(1));
    model.setFindText(u"retry nothing"_s);
    EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(PullRequestListModelTests, findsWithoutRegardToAccents)
{
    std::vector<ListedRow> rows = listed({1, 2});
    own(rows[0]).pullRequest.title = "Déjà vu";
    own(rows[1]).pullRequest.title = "Ферри в ÅRHUS";
    model.setRows(rows);
    model.setFindText(u"deja"_s);
    EXPECT_THAT(shown(), ElementsAre(1));
    model.setFindText(u"déjà"_s);
    EXPECT_THAT(shown(), ElementsAre(1));
    model.setFindText(u"århus ФЕРРИ"_s);
    EXPECT_THAT(shown(), ElementsAre(2));
}

TEST_F(PullRequestListModelTests, aNewListIsFoundInAsWell)
{
    model.setRows(listed({1, 2}));
    model.setFindText(u"request 1"_s);
    model.setRows(listed({11, 2, 1}));
    EXPECT_THAT(shown(), ElementsAre(11, 1));
}

TEST_F(PullRequestListModelTests, numbersAreFoundWithAndWithoutTheirSign)
{
    model.setRows(listed({1, 412, 4120, 7}));
    model.setFindText(u"#412"_s);
    EXPECT_THAT(shown(), ElementsAre(412, 4120));
    model.setFindText(u"412"_s);
    EXPECT_THAT(shown(), ElementsAre(412, 4120));
    model.setFindText(u"#7"_s);
    EXPECT_THAT(shown(), ElementsAre(7));
}

TEST_F(PullRequestListModelTests, aHitWhoseParentIsNoneStandsWithoutIndentation)
{
    std::vector<ListedRow> rows = listed({1, 2, 3, 4, 5});
    const std::vector<std::int64_t> depths{0, 1, 2, 3, 1};
    const std::vector<const char*> titles{"hit", "no", "hit", "hit", "hit"};
    for (std::size_t row = 0; row < rows.size(); ++row) {
        own(rows[row]).depth = depths[row];
        own(rows[row]).pullRequest.title = titles[row];
    }
    model.setRows(rows);
    const auto shownDepths = [this] {
        std::vector<std::int64_t> found;
        for (int row = 0; row < model.rowCount(); ++row) {
            found.push_back(model.depth(row));
        }
        return found;
    };
    EXPECT_EQ(shownDepths(), depths);
    const QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    model.setFindText(u"hit"_s);
    EXPECT_THAT(shown(), ElementsAre(1, 3, 4, 5));
    EXPECT_THAT(shownDepths(), ElementsAre(0, 0, 1, 1));
    EXPECT_GE(changed.size(), 1);
    EXPECT_EQ(model.content(1).stateIconName(), u"stack"_s);
    model.setFindText(QString());
    EXPECT_EQ(shownDepths(), depths);
}

TEST_F(PullRequestListModelTests, countWidthsAreThoseOfAllRowsWhateverIsFound)
{
    std::vector<ListedRow> rows = listed({1, 2});
    own(rows[0]).pullRequest.checks = {14, 14, 0};
    own(rows[1]).pullRequest.reviews = {2, 3, 0};
    own(rows[1]).pullRequest.requiredApprovingReviewCount = 2;
    model.setRows(rows);
    model.setFindText(u"request 2"_s);
    EXPECT_NEAR(model.countWidths().checks, 4 * 0.64 + 0.43, 1e-9);
    EXPECT_NEAR(model.countWidths().reviews, 3 * 0.64 + 2 * 0.43, 1e-9);
}

TEST_F(PullRequestListModelTests, everyChangeStandsBetweenTheTwoSignals)
{
    const QSignalSpy before(&model, &PullRequestListModel::listAboutToChange);
    const QSignalSpy after(&model, &PullRequestListModel::listChanged);
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, &model, [&] {
        EXPECT_EQ(before.size(), 1);
        EXPECT_EQ(after.size(), 0);
    });
    model.setRows(listed({1, 2}));
    EXPECT_EQ(after.size(), 1);
}

/// Some of the numbers below `end` in any order.
std::vector<std::int64_t> someOf(std::size_t end, unsigned seed)
{
    std::mt19937 engine(seed);
    std::vector<std::int64_t> numbers(end);
    std::iota(numbers.begin(), numbers.end(), 0);
    std::ranges::shuffle(numbers, engine);
    numbers.resize(engine() % (end + 1));
    return numbers;
}

RC_GTEST_FIXTURE_PROP(PullRequestListModelTests, theSignalsAloneLeadFromListToList, ())
{
    const Follower follower(model);
    const auto orders = *rc::gen::arbitrary<std::vector<unsigned>>();
    for (const unsigned order : orders) {
        const std::vector<std::int64_t> shuffled = someOf(12, order);
        model.setRows(listed(shuffled));
        RC_ASSERT(follower.texts == textsOf(model));
        model.setFindText(QString());
        RC_ASSERT(follower.texts == textsOf(model));
        RC_ASSERT(shown() == shuffled);
        model.setFindText(u"request 1"_s);
        RC_ASSERT(follower.texts == textsOf(model));
    }
}

}  // namespace
