#include "List/SampleRows.h"
#include "Tarnwick/Interface/List/PullRequestListModel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace {

using namespace Qt::StringLiterals;
using namespace TestSupport;

class TurnListModelTests : public testing::Test {
protected:
    /// Numbers, and headings with what they count.
    QStringList shown() const
    {
        QStringList rows;
        for (int row = 0; row < model.rowCount(); ++row) {
            if (!model.isHeading(row)) {
                rows.append(QString::number(model.content(row).pullRequest().id.number));
                continue;
            }
            const GroupHeading& heading = model.heading(row);
            rows.append(QStringLiteral("%1 %2/%3")
                            .arg(model.index(row).data(Qt::DisplayRole).toString())
                            .arg(heading.earnedCount)
                            .arg(heading.rowCount));
        }
        return rows;
    }

    PullRequestListModel model{sampleNow};
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(TurnListModelTests, eachGroupHasAHeadingThatCountsWhatEarnsIt)
{
    model.setRows(turnRows());
    EXPECT_EQ(
        shown().join(u", "_s),
        u"Waiting on You 3/5, 482, 485, 491, 1207, 93, Ready to Merge 1/1, 471, Your Teams 1/1, "
        u"34, "
        u"Waiting on Others 5/5, 31, 459, 1190, 1188, 22"_s);
    EXPECT_EQ(model.totalCount(), 12);
    EXPECT_EQ(model.foundCount(), 12);
    EXPECT_EQ(model.countInSight(), 12);
    EXPECT_THAT(model.headingRows(), ElementsAre(0, 6, 8, 10));
    EXPECT_EQ(model.firstPullRequest(), 1);
}

TEST_F(TurnListModelTests, headingsAreReadAndCannotBeSelected)
{
    model.setRows(turnRows());
    const QModelIndex heading = model.index(0);
    EXPECT_EQ(
        heading.data(Qt::AccessibleTextRole).toString(), u"Waiting on You, 3 of 5 pull requests"_s);
    EXPECT_FALSE(heading.data(Qt::AccessibleDescriptionRole).isValid());
    EXPECT_FALSE(model.flags(heading).testFlag(Qt::ItemIsSelectable));
    EXPECT_TRUE(model.flags(model.index(1)).testFlag(Qt::ItemIsSelectable));
}

TEST_F(TurnListModelTests, withoutTurnsThereAreNoHeadings)
{
    model.setRows(turnRows());
    model.setRows(plainRows(3));
    EXPECT_THAT(shown(), ElementsAre(u"1"_s, u"2"_s, u"3"_s));
    EXPECT_THAT(model.headingRows(), IsEmpty());
    EXPECT_EQ(model.firstPullRequest(), 0);
}

TEST_F(TurnListModelTests, aRowGoesToAnotherHeadingWithWhatIsKnownOfIt)
{
    model.setRows(
        {turnRow(1, Whose::you),
         turnRow(2, Whose::you),
         turnRow(3, Whose::others),
         turnRow(4, Whose::others)});
    const QPersistentModelIndex first = model.index(1);
    const QPersistentModelIndex second = model.index(2);
    const QSignalSpy insertions(&model, &QAbstractItemModel::rowsInserted);
    const QSignalSpy removals(&model, &QAbstractItemModel::rowsRemoved);
    model.setRows(
        {turnRow(2, Whose::you),
         turnRow(3, Whose::others),
         turnRow(1, Whose::others),
         turnRow(4, Whose::others)});
    EXPECT_THAT(
        shown(),
        ElementsAre(
            u"Waiting on You 1/1"_s, u"2"_s, u"Waiting on Others 3/3"_s, u"3"_s, u"1"_s, u"4"_s));
    EXPECT_EQ(first.row(), 4);
    EXPECT_EQ(second.row(), 1);
    EXPECT_THAT(insertions, IsEmpty());
    EXPECT_THAT(removals, IsEmpty());
}

TEST_F(TurnListModelTests, aHeadingComesWithItsFirstRowAndGoesWithItsLast)
{
    model.setRows({turnRow(1, Whose::you), turnRow(2, Whose::others)});
    model.setRows({turnRow(1, Whose::ready), turnRow(2, Whose::others)});
    EXPECT_THAT(
        shown(), ElementsAre(u"Ready to Merge 1/1"_s, u"1"_s, u"Waiting on Others 1/1"_s, u"2"_s));
    model.setRows({});
    EXPECT_THAT(shown(), IsEmpty());
    EXPECT_EQ(model.firstPullRequest(), -1);
}

TEST_F(TurnListModelTests, aChangedCountIsToldOfTheHeadingAlone)
{
    model.setRows({turnRow(1, Whose::you), turnRow(2, Whose::you)});
    const QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    model.setRows(
        {turnRow(1, Whose::you),
         underHeading(
             turnRow(2, Whose::you),
             Whose::you,
             {Whose::others, TurnReason::waitingFor, {"mara"}, 0})});
    EXPECT_THAT(shown(), ElementsAre(u"Waiting on You 1/2"_s, u"1"_s, u"2"_s));
    ASSERT_EQ(changes.size(), 2);
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 0);
    EXPECT_EQ(changes[1][0].toModelIndex().row(), 2);
}

TEST_F(TurnListModelTests, whileFindingOnlyHitsCountAndHeadingsWithoutHitsGo)
{
    model.setRows(turnRows());
    model.setFindText(u"tidewatch"_s);
    EXPECT_THAT(
        shown(),
        ElementsAre(
            u"Waiting on You 1/1"_s, u"1207"_s, u"Waiting on Others 2/2"_s, u"1190"_s, u"1188"_s));
    EXPECT_EQ(model.foundCount(), 3);
    model.setFindText(u"database"_s);
    EXPECT_THAT(shown(), ElementsAre(u"Waiting on You 0/1"_s, u"485"_s));
    model.setFindText(u"nothing like it"_s);
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(TurnListModelTests, dimmedRowsDoNotCount)
{
    std::vector<ListedRow> rows = turnRows();
    rows[3].sight = Sight::hiddenByMergeability;
    rows[5].sight = Sight::hiddenByStatus;
    model.setRows(rows);
    EXPECT_EQ(model.countInSight(), 10);
    EXPECT_EQ(model.heading(0), (GroupHeading{Whose::you, 4, 2}));
    EXPECT_EQ(model.heading(6), (GroupHeading{Whose::ready, 0, 0}));
    EXPECT_EQ(model.index(6).data(Qt::AccessibleTextRole).toString(), u"Ready to Merge"_s);
    EXPECT_EQ(model.content(4).reason().words, u"Hidden by Merge-ready"_s);
}

TEST_F(TurnListModelTests, theReasonIsReadFirst)
{
    model.setRows(turnRows());
    EXPECT_EQ(
        model.index(5).data(Qt::AccessibleDescriptionRole).toString(),
        u"Checks failed: \u2068build\u2069, \u2068test (linux)\u2069. "
        "saltmarsh/beacon #93 · \u2068robin-k\u2069 · 1d"_s);
    EXPECT_EQ(
        model.index(3).data(Qt::AccessibleDescriptionRole).toString(),
        u"Draft · northmere/quay #491 · \u2068mira-k\u2069 · 48m"_s);
}

}  // namespace
