#include "List/ListViewFixture.h"

#include <QScrollBar>
#include <QSignalSpy>

namespace {

using namespace Qt::StringLiterals;
using namespace TestSupport;

class ListFindingTests : public ListViewTest {};

TEST_F(ListFindingTests, theFirstHitIsFilledAndOpened)
{
    show(plainRows(12));
    view.openHit();
    EXPECT_THAT(numbers[RowAction::open], IsEmpty()) << "nothing is looked for";
    EXPECT_FALSE(view.situation(0).isSelected);
    model.setFindText(u"#1"_s);
    ASSERT_EQ(model.rowCount(), 4);
    EXPECT_TRUE(view.situation(0).isSelected);
    EXPECT_FALSE(view.situation(0).hasFocusRing);
    EXPECT_EQ(current(), -1);
    model.setFindText(u"#11"_s);
    EXPECT_TRUE(view.situation(0).isSelected);
    view.openHit();
    EXPECT_THAT(numbers[RowAction::open], ElementsAre(11));
    model.setFindText(u"nothing"_s);
    view.openHit();
    EXPECT_THAT(numbers[RowAction::open], ElementsAre(11));
}

TEST_F(ListFindingTests, aSelectedHitIsTheOneThatIsOpened)
{
    show(plainRows(12));
    press(Qt::Key_End);
    model.setFindText(u"#1"_s);
    EXPECT_EQ(current(), 3);
    EXPECT_FALSE(view.situation(0).isSelected);
    view.openHit();
    EXPECT_THAT(numbers[RowAction::open], ElementsAre(12));
}

TEST_F(ListFindingTests, aSelectedRowThatIsNoHitIsSelectedAgainInTheEnd)
{
    show(plainRows(60));
    press(Qt::Key_End);
    model.setFindText(u"#1"_s);
    EXPECT_EQ(current(), -1);
    EXPECT_TRUE(view.situation(0).isSelected);
    model.setFindText(u"#12"_s);
    model.setFindText(QString());
    EXPECT_EQ(current(), 59);
    EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(view.currentIndex())));
}

TEST_F(ListFindingTests, theEndOfFindingKeepsTheSelectedRowInSight)
{
    show(plainRows(60));
    model.setFindText(u"#5"_s);
    press(Qt::Key_End);
    ASSERT_EQ(model.content(current()).pullRequest().id.number, 59);
    model.setFindText(QString());
    EXPECT_EQ(model.content(current()).pullRequest().id.number, 59);
    EXPECT_TRUE(view.viewport()->rect().contains(view.visualRect(view.currentIndex())));
}

TEST_F(ListFindingTests, theFirstHitIsInSightWhileOneTypes)
{
    show(plainRows(60));
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
    model.setFindText(u"request"_s);
    EXPECT_EQ(model.rowCount(), 60);
    EXPECT_EQ(view.visualRect(model.index(0)).top(), 0);
}

TEST_F(ListFindingTests, aHitWithoutItsParentHasALineAndNoArrow)
{
    std::vector<ListedRow> rows = plainRows(3);
    own(rows[2]).depth = 1;
    show(rows);
    model.setFindText(u"#2"_s);
    model.setFindText(u"#"_s);
    EXPECT_FALSE(view.rows().geometry(2).arrow.isEmpty());
    EXPECT_FALSE(view.situation(2).hasLineAbove);
    own(rows[1]).pullRequest.title = "Something else";
    model.setRows(rows);
    model.setFindText(u"request"_s);
    ASSERT_EQ(model.rowCount(), 2);
    EXPECT_TRUE(view.rows().geometry(1).arrow.isEmpty());
    EXPECT_EQ(view.rows().geometry(1).stateIcon.left(), 16);
}

TEST_F(ListFindingTests, slashAsksToFind)
{
    show(plainRows(3));
    const QSignalSpy asked(&view, &PullRequestListView::findRequested);
    QTest::keyClick(&view, '/');
    EXPECT_EQ(asked.size(), 1);
}

TEST_F(ListFindingTests, whenTheSelectedHitGoesTheNextHitIsSelected)
{
    std::vector<ListedRow> rows = plainRows(13);
    show(rows);
    model.setFindText(u"#1"_s);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    ASSERT_EQ(model.content(view.currentIndex()).row().id().number, 10);
    rows.erase(rows.begin() + 9);
    model.setRows(rows);
    EXPECT_TRUE(view.selectionModel()->isSelected(view.currentIndex()));
    EXPECT_EQ(model.content(view.currentIndex()).row().id().number, 11);
}

}  // namespace
