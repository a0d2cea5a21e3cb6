#include "List/ListViewFixture.h"
#include "Support/PullRequests.h"

#include <QAccessible>
#include <QApplication>
#include <QScrollBar>
#include <QTest>

#include <algorithm>

namespace {

using namespace Qt::StringLiterals;
using namespace TestSupport;

/// Thirty rows of 52 under two headings of 28: 1 to 10 wait for the user, the others for others.
std::vector<ListedRow> thirtyRows()
{
    std::vector<ListedRow> rows;
    for (int number = 1; number <= 30; ++number) {
        rows.push_back(turnRow(number, number <= 10 ? Whose::you : Whose::others));
    }
    return rows;
}

class TurnListViewTests : public ListViewTest {
protected:
    QScrollBar& scrollBar() { return *view.verticalScrollBar(); }

    /// The number of the selected pull request; 0 for none.
    std::int64_t selected() const
    {
        const QModelIndex current = view.currentIndex();
        return current.isValid() ? model.content(current).pullRequest().id.number : 0;
    }

    int topOf(std::int64_t number) const
    {
        return view.visualRect(model.indexOf({"github", "github.com", "octo/tools", number})).top();
    }

    std::vector<std::int64_t>& openedNumbers = numbers[RowAction::open];
};

TEST_F(TurnListViewTests, headingsAreTwentyEightHighAndGrowWithTheText)
{
    show(turnRows());
    EXPECT_EQ(view.visualRect(model.index(0)), QRect(0, 0, 420, 28));
    for (const auto& [scale, height] : {std::pair(1.25, 36), std::pair(1.5, 42)}) {
        appearance.setTextScale(scale);
        PullRequestListView other(model);
        other.resize(600, 520);
        other.doItemsLayout();
        EXPECT_EQ(other.visualRect(model.index(0)).height(), height);
    }
}

TEST_F(TurnListViewTests, keysPassHeadings)
{
    show(thirtyRows());
    press(Qt::Key_Down);
    EXPECT_EQ(selected(), 1);
    press(Qt::Key_Up);
    EXPECT_EQ(selected(), 1);
    for (int times = 0; times < 10; ++times) {
        press(Qt::Key_Down);
    }
    EXPECT_EQ(selected(), 11);
    press(Qt::Key_Up);
    EXPECT_EQ(selected(), 10);
    press(Qt::Key_PageDown);
    EXPECT_EQ(selected(), 17);
}

TEST_F(TurnListViewTests, homeShowsTheFirstHeading)
{
    show(thirtyRows());
    press(Qt::Key_End);
    EXPECT_EQ(selected(), 30);
    press(Qt::Key_Home);
    EXPECT_EQ(selected(), 1);
    EXPECT_EQ(scrollBar().value(), 0);
    EXPECT_EQ(topOf(1), 28);
}

TEST_F(TurnListViewTests, aRowThatAKeyLeadsToStandsClearOfTheHeading)
{
    show(thirtyRows());
    press(Qt::Key_End);
    EXPECT_EQ(topOf(30) + 52, view.viewport()->height());
    for (std::int64_t number = 29; number > 0; --number) {
        press(Qt::Key_Up);
        ASSERT_EQ(selected(), number);
        EXPECT_GE(topOf(number), 28);
    }
}

TEST_F(TurnListViewTests, controlAndArrowsLeadToGroups)
{
    show(thirtyRows());
    press(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(selected(), 1) << "nothing was selected";
    press(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(selected(), 11);
    press(Qt::Key_Down);
    press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(selected(), 11);
    press(Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(selected(), 1);
}

TEST_F(TurnListViewTests, withoutGroupsTheKeysAreNotTheLists)
{
    show(plainRows(3));
    QKeyEvent event(QEvent::KeyPress, Qt::Key_Down, Qt::ControlModifier);
    QApplication::sendEvent(&view, &event);
    EXPECT_FALSE(event.isAccepted());
    EXPECT_EQ(selected(), 0);
}

TEST_F(TurnListViewTests, nothingIsDoneToAHeadingByThePointer)
{
    show(thirtyRows());
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(60, 14));
    EXPECT_THAT(openedNumbers, IsEmpty());
    EXPECT_EQ(selected(), 0);
    EXPECT_EQ(view.toolTipAt(QPoint(60, 14)), QString());
    // The heading covers the row that is scrolled below it.
    scrollBar().setValue(100);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(60, 27));
    EXPECT_THAT(openedNumbers, IsEmpty());
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(60, 28));
    EXPECT_THAT(openedNumbers, ElementsAre(2));
}

TEST_F(TurnListViewTests, theFirstRowBelowAHeadingHasNoLineAbove)
{
    show(turnRows());
    EXPECT_FALSE(view.situation(1).hasLineAbove);
    EXPECT_FALSE(view.situation(2).hasLineAbove) << "of the same stack";
    EXPECT_TRUE(view.situation(4).hasLineAbove);
    EXPECT_FALSE(view.situation(7).hasLineAbove);
}

TEST_F(TurnListViewTests, rowsInSightStayWhereTheyAreWhenOthersGoToAnotherHeading)
{
    show(thirtyRows());
    scrollBar().setValue(1 + 28 + 14 * 52);
    ASSERT_EQ(topOf(15), 28 - 1);
    std::vector<ListedRow> rows = thirtyRows();
    // The first one in sight goes up to the other heading.
    rows.erase(rows.begin() + 14);
    rows.insert(rows.begin(), turnRow(15, Whose::you));
    const int before = topOf(16);
    model.setRows(rows);
    EXPECT_EQ(topOf(16), before);
    EXPECT_LT(topOf(15), 0);
}

TEST_F(TurnListViewTests, theSelectionStaysWithItsPullRequest)
{
    show(thirtyRows());
    press(Qt::Key_Home);
    std::vector<ListedRow> rows = thirtyRows();
    rows.erase(rows.begin());
    rows.push_back(turnRow(1, Whose::others));
    model.setRows(rows);
    EXPECT_EQ(selected(), 1);
    EXPECT_TRUE(view.situation(model.rowCount() - 1).isSelected);
}

TEST_F(TurnListViewTests, theFirstHitIsFilledBelowItsHeading)
{
    show(thirtyRows());
    model.setFindText(u"#12"_s);
    ASSERT_TRUE(model.isHeading(0));
    EXPECT_TRUE(view.situation(1).isSelected);
    view.openHit();
    EXPECT_THAT(openedNumbers, ElementsAre(12));
}

TEST_F(TurnListViewTests, theToolTipOfACutLineIsTheWholeLine)
{
    std::vector<ListedRow> rows = turnRows();
    view.resize(300, 520);
    show(rows);
    const QRect place = view.visualRect(model.index(5));
    const QPoint onDetails = place.topLeft() + QPoint(60, place.height() - 17);
    EXPECT_EQ(
        view.toolTipAt(onDetails),
        u"Checks failed: \u2068build\u2069, \u2068test (linux)\u2069 · "
        "saltmarsh/beacon #93 · \u2068robin-k\u2069 · 1d"_s);
}

TEST_F(TurnListViewTests, screenReadersFindHeadingsAmongTheItems)
{
    show(turnRows());
    QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(&view);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->text(QAccessible::Name), u"Pull requests"_s);
    ASSERT_EQ(list->childCount(), 16);
    EXPECT_EQ(list->child(0)->role(), QAccessible::Heading);
    EXPECT_EQ(list->child(0)->text(QAccessible::Name), u"Waiting on You, 3 of 5 pull requests"_s);
    EXPECT_FALSE(list->child(0)->state().selectable);
    EXPECT_FALSE(list->child(0)->state().focusable);
    QAccessibleInterface* const row = list->child(1);
    EXPECT_EQ(row->role(), QAccessible::ListItem);
    EXPECT_EQ(row->parent(), list);
    EXPECT_EQ(list->child(1), row) << "the same one again";
    EXPECT_EQ(list->indexOfChild(row), 1);
    EXPECT_EQ(
        row->text(QAccessible::Name),
        u"Move sessions to a store, Open pull request, Reviews pending, 14/14 checks"_s);
    EXPECT_EQ(
        row->rect(),
        QRect(view.viewport()->mapToGlobal(QPoint(0, 28)), view.visualRect(model.index(1)).size()));
    EXPECT_FALSE(row->state().selected);
    press(Qt::Key_Home);
    EXPECT_TRUE(row->state().selected);
    EXPECT_TRUE(row->state().focused);
    EXPECT_EQ(list->focusChild(), row);
    const QPoint inFirstRow = view.viewport()->mapToGlobal(QPoint(100, 40));
    EXPECT_EQ(list->childAt(inFirstRow.x(), inFirstRow.y()), row);
    EXPECT_TRUE(list->child(15)->state().offscreen);
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
TEST_F(TurnListViewTests, screenReadersSelectRowsAndNoHeadings)
{
    show(turnRows());
    QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(&view);
    QAccessibleSelectionInterface* const selection = list->selectionInterface();
    ASSERT_NE(selection, nullptr);
    EXPECT_EQ(selection->selectedItemCount(), 0);
    EXPECT_FALSE(selection->select(list->child(0)));
    EXPECT_TRUE(selection->select(list->child(1)));
    EXPECT_EQ(selected(), 482);
    EXPECT_EQ(selection->selectedItem(0), list->child(1));
    EXPECT_TRUE(selection->isSelected(list->child(1)));
    EXPECT_TRUE(selection->unselect(list->child(1)));
    EXPECT_EQ(selection->selectedItemCount(), 0);
}
#endif

TEST_F(TurnListViewTests, screenReadersLoseRowsThatGo)
{
    show({turnRow(1, Whose::you), turnRow(2, Whose::you), turnRow(3, Whose::others)});
    QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(&view);
    QAccessibleInterface* const third = list->child(4);
    const QAccessible::Id second = QAccessible::uniqueId(list->child(2));
    model.setRows({turnRow(1, Whose::you), turnRow(3, Whose::you)});
    EXPECT_EQ(QAccessible::accessibleInterface(second), nullptr);
    ASSERT_EQ(list->childCount(), 3);
    EXPECT_EQ(list->child(2), third);
}

}  // namespace
