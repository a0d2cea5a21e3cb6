#include "Tarnwick/Interface/List/PullRequestListModel.h"

#include "Support/PullRequests.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <numeric>
#include <random>

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace {

using namespace PullRequestKit;
using namespace Qt::StringLiterals;
using namespace Tarnwick;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::date;
using TestSupport::makePullRequest;

ListedRow listed(std::int64_t number)
{
    return {{makePullRequest(number), 0, false, {}}, false};
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
    const QSignalSpy layouts(&model, &QAbstractItemModel::layoutChanged);
    model.setRows(listed({1, 2, 3, 4}));
    model.setRows(listed({4, 2, 5, 1}));
    EXPECT_THAT(shown(), ElementsAre(4, 2, 5, 1));
    EXPECT_THAT(resets, IsEmpty());
    EXPECT_THAT(layouts, IsEmpty());
}

TEST_F(PullRequestListModelTests, theSameListChangesNothing)
{
    model.setRows(listed({1, 2, 3}));
    const QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    const QSignalSpy moves(&model, &QAbstractItemModel::rowsMoved);
    model.setRows(listed({1, 2, 3}));
    EXPECT_THAT(changes, IsEmpty());
    EXPECT_THAT(moves, IsEmpty());
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

TEST_F(PullRequestListModelTests, aRowsAccessibleTextIsItsSentence)
{
    ListedRow row = listed(1);
    row.row.pullRequest.title = "Fix login";
    row.row.pullRequest.mergeability = PullRequestMergeability::conflicting;
    row.row.pullRequest.reviewState = ReviewState::changesRequested;
    row.row.pullRequest.checks = {2, 3, 0};
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

TEST_F(PullRequestListModelTests, findsInTitlesRepositoriesAuthorsAndBranches)
{
    std::vector<ListedRow> rows = listed({1, 2, 3, 4, 5});
    rows[0].row.pullRequest.title = "Keep the tide table";
    rows[1].row.pullRequest.id.repository = "saltmarsh/tidewatch";
    rows[2].row.pullRequest.author = "tideline";
    rows[3].row.pullRequest.head.name = "feature/low-tide";
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
    rows[0].row.pullRequest.title = "Retry uploads";
    rows[0].row.pullRequest.author = "ines.duarte";
    rows[1].row.pullRequest.title = "Retry downloads";
    model.setRows(rows);
    model.setFindText(u"  ines   retry "_s);
    EXPECT_THAT(shown(), ElementsAre(1));
    model.setFindText(u"retry nothing"_s);
    EXPECT_THAT(shown(), IsEmpty());
}

TEST_F(PullRequestListModelTests, findsWithoutRegardToAccents)
{
    std::vector<ListedRow> rows = listed({1, 2});
    rows[0].row.pullRequest.title = "Déjà vu";
    rows[1].row.pullRequest.title = "Ферри в ÅRHUS";
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

TEST_F(PullRequestListModelTests, aFoundRowKeepsItsDepth)
{
    std::vector<ListedRow> rows = listed({1, 2});
    rows[1].row.depth = 2;
    model.setRows(rows);
    model.setFindText(u"request 2"_s);
    EXPECT_EQ(model.content(0).row().depth, 2);
}

TEST_F(PullRequestListModelTests, countWidthsAreThoseOfAllRowsWhateverIsFound)
{
    std::vector<ListedRow> rows = listed({1, 2});
    rows[0].row.pullRequest.checks = {14, 14, 0};
    rows[1].row.pullRequest.reviews = {2, 3, 0};
    rows[1].row.pullRequest.requiredApprovingReviewCount = 2;
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

/// A list whose rows follow the model's signals and know nothing else of it.
class Follower {
public:
    explicit Follower(PullRequestListModel& model)
        : _model(model)
    {
        using Model = QAbstractItemModel;
        QObject::connect(
            &model, &Model::rowsRemoved, &_context, [this](auto&&, int first, int last) {
                numbers.erase(numbers.begin() + first, numbers.begin() + last + 1);
            });
        QObject::connect(
            &model, &Model::rowsMoved, &_context, [this](auto&&, int from, int, auto&&, int to) {
                const std::int64_t moved = numbers.at(static_cast<std::size_t>(from));
                numbers.erase(numbers.begin() + from);
                numbers.insert(numbers.begin() + (to > from ? to - 1 : to), moved);
            });
        QObject::connect(
            &model, &Model::rowsInserted, &_context, [this](auto&&, int first, int last) {
                for (int row = first; row <= last; ++row) {
                    numbers.insert(
                        numbers.begin() + row, _model.content(row).pullRequest().id.number);
                }
            });
    }

    std::vector<std::int64_t> numbers;

private:
    PullRequestListModel& _model;
    QObject _context;
};

RC_GTEST_FIXTURE_PROP(PullRequestListModelTests, theSignalsAloneLeadFromListToList, ())
{
    const Follower follower(model);
    const auto orders = *rc::gen::arbitrary<std::vector<unsigned>>();
    for (const unsigned order : orders) {
        const std::vector<std::int64_t> shuffled = someOf(12, order);
        model.setRows(listed(shuffled));
        RC_ASSERT(follower.numbers == shown());
        model.setFindText(QString());
        RC_ASSERT(follower.numbers == shown());
        RC_ASSERT(shown() == shuffled);
        model.setFindText(u"request 1"_s);
        RC_ASSERT(follower.numbers == shown());
    }
}

}  // namespace
