#include "List/ListViewFixture.h"
#include "Support/PullRequests.h"

#include <QAccessible>
#include <QScrollBar>

#include <algorithm>

namespace {

using namespace Qt::StringLiterals;
using namespace TestSupport;

class PullRequestListViewTests : public ListViewTest {};

const QPoint onEditorButton(390, 35);

TEST_F(PullRequestListViewTests, keysMoveTheSelection)
{
    show(plainRows(40));
    EXPECT_EQ(current(), -1);
    press(Qt::Key_Down);
    EXPECT_EQ(current(), 0);
    press(Qt::Key_Down);
    press(Qt::Key_J);
    EXPECT_EQ(current(), 2);
    press(Qt::Key_Up);
    press(Qt::Key_K);
    press(Qt::Key_K);
    EXPECT_EQ(current(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(current(), 39);
    press(Qt::Key_Down);
    EXPECT_EQ(current(), 39);
    press(Qt::Key_Home);
    EXPECT_EQ(current(), 0);
}

TEST_F(PullRequestListViewTests, pageKeysMoveByWhatIsInSight)
{
    show(plainRows(40));
    press(Qt::Key_Home);
    press(Qt::Key_PageDown);
    EXPECT_EQ(current(), 9);
    press(Qt::Key_PageDown);
    EXPECT_EQ(current(), 18);
    press(Qt::Key_PageUp);
    EXPECT_EQ(current(), 9);
    press(Qt::Key_PageUp);
    press(Qt::Key_PageUp);
    EXPECT_EQ(current(), 0);
}

TEST_F(PullRequestListViewTests, theSelectedRowIsInSight)
{
    show(plainRows(40));
    press(Qt::Key_End);
    const QRect last = view.visualRect(view.currentIndex());
    EXPECT_EQ(last.bottom(), view.viewport()->height() - 1);
    EXPECT_EQ(last.height(), 52);
}

TEST_F(PullRequestListViewTests, returnOpensAndControlEOpensInTheEditor)
{
    show(plainRows(3));
    press(Qt::Key_Return);
    press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_THAT(numbers[RowAction::open], IsEmpty());
    EXPECT_THAT(numbers[RowAction::openInEditor], IsEmpty());
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    press(Qt::Key_E, Qt::ControlModifier);
    EXPECT_THAT(numbers[RowAction::open], ElementsAre(2));
    EXPECT_THAT(numbers[RowAction::openInEditor], ElementsAre(2));
}

TEST_F(PullRequestListViewTests, lettersAloneStartNoWork)
{
    show(plainRows(3));
    press(Qt::Key_Down);
    for (int key = Qt::Key_A; key <= Qt::Key_Z; ++key) {
        press(key);
    }
    EXPECT_THAT(numbers[RowAction::open], IsEmpty());
    EXPECT_THAT(numbers[RowAction::openInEditor], IsEmpty());
    EXPECT_FALSE(view.isMenuOpen());
}

TEST_F(PullRequestListViewTests, opensWithoutThePanelsEndByMiddleClickAndControl)
{
    show(plainRows(4));
    const auto press = [this](Qt::MouseButton button, Qt::KeyboardModifiers keys, int row) {
        QTest::mouseClick(view.viewport(), button, keys, inRow(row, onTitle));
    };
    press(Qt::MiddleButton, Qt::NoModifier, 1);
    press(Qt::LeftButton, Qt::ControlModifier, 2);
    EXPECT_EQ(current(), 2);
    QTest::keyClick(&view, Qt::Key_Return, Qt::ControlModifier);
    EXPECT_THAT(numbers[RowAction::openAndStay], ElementsAre(2, 3, 3));
    press(Qt::RightButton, Qt::NoModifier, 0);
    QTest::mousePress(view.viewport(), Qt::MiddleButton, {}, inRow(0, onTitle));
    QTest::mouseRelease(view.viewport(), Qt::MiddleButton, {}, inRow(1, onTitle));
    EXPECT_THAT(numbers[RowAction::openAndStay], ElementsAre(2, 3, 3));
    EXPECT_THAT(numbers[RowAction::open], IsEmpty());
}

TEST_F(PullRequestListViewTests, keysOfThePanelGoOnToIt)
{
    show(plainRows(3));
    for (const Qt::Key key : {Qt::Key_R, Qt::Key_Comma, Qt::Key_Menu, Qt::Key_Escape}) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&view, &event);
        EXPECT_FALSE(event.isAccepted()) << key;
    }
}

TEST_F(PullRequestListViewTests, thereIsNoFocusRingBeforeTheFirstKey)
{
    show(plainRows(3));
    click(inRow(1, onTitle));
    EXPECT_TRUE(view.situation(1).isSelected);
    EXPECT_FALSE(view.situation(1).hasFocusRing);
    press(Qt::Key_Down);
    EXPECT_TRUE(view.situation(2).hasFocusRing);
    EXPECT_TRUE(view.situation(2).showsEditorButton);
    view.hide();
    view.show();
    EXPECT_FALSE(view.situation(2).hasFocusRing);
}

TEST_F(PullRequestListViewTests, tabbingIntoTheListShowsWhereTheFocusIs)
{
    show(plainRows(3));
    view.clearFocus();
    view.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(current(), 0);
    EXPECT_TRUE(view.situation(0).hasFocusRing);
}

TEST_F(PullRequestListViewTests, aClickOpensTheRow)
{
    show(plainRows(3));
    click(inRow(1, onTitle));
    EXPECT_THAT(numbers[RowAction::open], ElementsAre(2));
    EXPECT_THAT(numbers[RowAction::openInEditor], IsEmpty());
}

TEST_F(PullRequestListViewTests, aDoubleClickOpensTheRowOnce)
{
    show(plainRows(3));
    const QPoint position = inRow(1, onTitle);
    click(position);
    // What the second click becomes when it comes in time.
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, Qt::NoModifier, position);
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, Qt::NoModifier, position);
    EXPECT_THAT(numbers[RowAction::open], ElementsAre(2));
}

TEST_F(PullRequestListViewTests, aClickOnTheEditorButtonOpensTheEditor)
{
    show(plainRows(3));
    click(inRow(2, onEditorButton));
    click(inRow(1, QPoint(419 - 13, 51)));
    EXPECT_THAT(numbers[RowAction::openInEditor], ElementsAre(3, 2));
    EXPECT_THAT(numbers[RowAction::open], IsEmpty());
}

TEST_F(PullRequestListViewTests, aPressThatIsReleasedElsewhereOpensNothing)
{
    show(plainRows(3));
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, inRow(0, onTitle));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, inRow(1, onTitle));
    QTest::mousePress(view.viewport(), Qt::LeftButton, {}, inRow(0, onTitle));
    QTest::mouseRelease(view.viewport(), Qt::LeftButton, {}, inRow(0, onEditorButton));
    EXPECT_THAT(numbers[RowAction::open], IsEmpty());
    EXPECT_THAT(numbers[RowAction::openInEditor], IsEmpty());
}

TEST_F(PullRequestListViewTests, theRowUnderThePointerHasItsEditorButton)
{
    show(plainRows(3));
    pointAt(inRow(1, onTitle));
    EXPECT_EQ(view.situation(1).hover, 1);
    EXPECT_TRUE(view.situation(1).showsEditorButton);
    EXPECT_FALSE(view.situation(1).isOnEditorButton);
    EXPECT_FALSE(view.situation(0).showsEditorButton);
    EXPECT_EQ(view.viewport()->cursor().shape(), Qt::PointingHandCursor);
    pointAt(inRow(1, onEditorButton));
    EXPECT_TRUE(view.situation(1).isOnEditorButton);
    pointAt(QPoint(100, 500));
    EXPECT_EQ(view.situation(1).hover, 0);
    EXPECT_EQ(view.viewport()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(PullRequestListViewTests, linesStandBetweenStacksAndNotBesideAFill)
{
    show(sampleRows());
    EXPECT_FALSE(view.situation(0).hasLineAbove);
    EXPECT_FALSE(view.situation(1).hasLineAbove);
    EXPECT_FALSE(view.situation(3).hasLineAbove);
    EXPECT_TRUE(view.situation(4).hasLineAbove);
    EXPECT_TRUE(view.situation(5).hasLineAbove);
    EXPECT_TRUE(view.situation(6).hasLineAbove);
    pointAt(inRow(5, onTitle));
    EXPECT_TRUE(view.situation(4).hasLineAbove);
    EXPECT_FALSE(view.situation(5).hasLineAbove);
    EXPECT_FALSE(view.situation(6).hasLineAbove);
}

TEST_F(PullRequestListViewTests, toolTipsGoByTheRegion)
{
    show(sampleRows());
    const auto helpAt = [this](int row, QRect RowGeometry::* place) {
        return view.toolTipAt(inRow(row, (view.rows().geometry(row).*place).center()));
    };
    EXPECT_EQ(helpAt(0, &RowGeometry::stateIcon), u"Stacked Open pull request"_s);
    EXPECT_EQ(helpAt(3, &RowGeometry::stateIcon), u"Stacked Draft pull request"_s);
    EXPECT_EQ(helpAt(4, &RowGeometry::stateIcon), u"Open pull request"_s);
    EXPECT_EQ(helpAt(4, &RowGeometry::conflict), u"Merge conflict"_s);
    EXPECT_EQ(helpAt(5, &RowGeometry::conflict), u"Opens this pull request in your browser"_s);
    EXPECT_EQ(helpAt(0, &RowGeometry::review), u"Completed/Required/Total Reviewers"_s);
    EXPECT_EQ(helpAt(4, &RowGeometry::review), u"Completed/Total Reviewers"_s);
    EXPECT_EQ(helpAt(0, &RowGeometry::check), u"Checks passed / total checks"_s);
    EXPECT_EQ(helpAt(0, &RowGeometry::editorButton), u"Open in Editor"_s);
    EXPECT_EQ(helpAt(0, &RowGeometry::title), u"Opens this pull request in your browser"_s);
    EXPECT_EQ(helpAt(0, &RowGeometry::details), u"Opens this pull request in your browser"_s);
    EXPECT_EQ(view.toolTipAt(QPoint(100, 5000)), QString());
}

TEST_F(PullRequestListViewTests, theToolTipOfAnElidedTitleIsTheWholeTitle)
{
    show(sampleRows());
    const QString title =
        u"Retry uploads with exponential back-off and resume from the last acknowledged part"_s;
    EXPECT_EQ(
        view.toolTipAt(inRow(5, onTitle)), title + u"\nOpens this pull request in your browser"_s);
}

TEST_F(PullRequestListViewTests, selectionAndPlaceStayWhenTheListChanges)
{
    show(plainRows(60));
    press(Qt::Key_End);
    press(Qt::Key_Up);
    const int top = view.visualRect(view.currentIndex()).top();
    std::vector<ListedRow> rows = plainRows(60);
    rows.insert(rows.begin(), listedRow({makePullRequest(777), 0, false, {}}));
    rows.insert(rows.begin(), listedRow({makePullRequest(778), 0, false, {}}));
    model.setRows(rows);
    EXPECT_EQ(current(), 60);
    EXPECT_EQ(model.content(current()).pullRequest().id.number, 59);
    EXPECT_EQ(view.visualRect(view.currentIndex()).top(), top);
}

TEST_F(PullRequestListViewTests, aListAtItsTopStaysAtItsTop)
{
    show(plainRows(60));
    std::vector<ListedRow> rows = plainRows(60);
    rows.insert(rows.begin(), listedRow({makePullRequest(777), 0, false, {}}));
    model.setRows(rows);
    QApplication::processEvents();
    EXPECT_EQ(view.verticalScrollBar()->value(), 0);
}

TEST_F(PullRequestListViewTests, heldRowsStandStillInAListAtItsTop)
{
    show(plainRows(60));
    std::vector<ListedRow> rows = plainRows(60);
    rows.insert(rows.begin(), listedRow({makePullRequest(777), 0, false, {}}));
    view.holdRows();
    model.setRows(rows);
    EXPECT_EQ(view.visualRect(model.index(1)).top(), 0);
    view.holdRows();
    model.setRows(plainRows(60));
    EXPECT_EQ(view.visualRect(model.index(0)).top(), 0);
    model.setRows(rows);
    EXPECT_EQ(view.visualRect(model.index(0)).top(), 0) << "only once";
}

TEST_F(PullRequestListViewTests, aDimmedRowSaysWhyItIsHidden)
{
    std::vector<ListedRow> rows = sampleRows();
    rows[4].sight = Sight::hiddenByChecks;
    show(rows);
    EXPECT_EQ(model.countInSight(), static_cast<int>(rows.size()) - 1);
    EXPECT_TRUE(model.content(4).isDimmed());
    const QString description =
        model.data(model.index(4), Qt::AccessibleDescriptionRole).toString();
    EXPECT_TRUE(description.startsWith(u"Hidden by Checks. "_s)) << description.toStdString();
    click(inRow(4, onTitle));
    EXPECT_EQ(numbers[RowAction::open].size(), 1U);
}

TEST_F(PullRequestListViewTests, rowsFollowTheWidthAtOnce)
{
    show(sampleRows());
    EXPECT_EQ(view.visualRect(model.index(0)).height(), 70);
    view.resize(700, 520);
    EXPECT_EQ(view.visualRect(model.index(0)).height(), 52);
    EXPECT_EQ(view.visualRect(model.index(0)).width(), 700);
    EXPECT_EQ(view.rows().geometry(0).check.right(), 700 - 16 - 1);
}

TEST_F(PullRequestListViewTests, rowsHaveNamesForScreenReaders)
{
    std::vector<ListedRow> rows = plainRows(2);
    own(rows[1]).pullRequest.title = "Fix login";
    own(rows[1]).pullRequest.checks = {2, 3, 0};
    show(rows);
    EXPECT_EQ(view.objectName(), u"pullRequestList"_s);
    QAccessibleInterface* const list = QAccessible::queryAccessibleInterface(&view);
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->text(QAccessible::Name), u"Pull requests"_s);
    EXPECT_EQ(list->role(), QAccessible::List);
    ASSERT_EQ(list->childCount(), 2);
    EXPECT_EQ(
        list->child(1)->text(QAccessible::Name),
        u"Fix login, Open pull request, No reviewers, 2/3 checks"_s);
    EXPECT_EQ(list->child(1)->role(), QAccessible::ListItem);
}

TEST_F(PullRequestListViewTests, aDotSaysWhatHasChanged)
{
    std::vector<ListedRow> rows = sampleRows();
    rows[1].since = {
        sampleNow() - std::chrono::days(1),
        {{ChangeKind::approved, {}, {}}, {ChangeKind::checks, "4/4", "2/4"}}};
    rows[2].since = rows[1].since;
    rows[2].sight = Sight::hiddenByStatus;
    show(rows);
    const auto helpAt = [&](int row, QRect RowGeometry::* place) {
        return view.toolTipAt(inRow(row, (view.rows().geometry(row).*place).center()));
    };
    const QString sentence = u"Since yesterday: approved, checks 4/4 → 2/4"_s;
    EXPECT_EQ(helpAt(1, &RowGeometry::dot), sentence);
    EXPECT_TRUE(helpAt(1, &RowGeometry::details).endsWith(u'\n' + sentence));
    const QString open = u"Opens this pull request in your browser"_s;
    EXPECT_EQ(helpAt(0, &RowGeometry::dot), open) << "nothing is new";
    EXPECT_EQ(helpAt(2, &RowGeometry::dot), open) << "a dimmed row has no dot";
    const auto descriptionOf = [&](int row) {
        return model.data(model.index(row), Qt::AccessibleDescriptionRole).toString();
    };
    EXPECT_TRUE(descriptionOf(1).startsWith(
        u"Since yesterday: approved, checks from 4/4 to 2/4. northmere/quay #485"_s))
        << descriptionOf(1).toStdString();
    EXPECT_TRUE(descriptionOf(2).startsWith(u"Hidden by Status. northmere/quay #486"_s));
}

TEST_F(PullRequestListViewTests, whenTheSelectedRowGoesTheNextPullRequestIsSelected)
{
    std::vector<ListedRow> rows = turnRows();
    show(rows);
    const auto firstOfNextGroup = std::ranges::find_if(
        rows, [&](const ListedRow& row) { return row.heading != rows.front().heading; });
    ASSERT_NE(firstOfNextGroup, rows.end());
    const auto next = firstOfNextGroup->row->id();
    const auto last = firstOfNextGroup - rows.begin() - 1;
    press(Qt::Key_Home);
    while (model.content(view.currentIndex()).row().id()
           != rows[static_cast<std::size_t>(last)].row->id()) {
        press(Qt::Key_Down);
    }
    rows.erase(rows.begin() + last);
    model.setRows(rows);
    EXPECT_EQ(model.content(view.currentIndex()).row().id(), next);
    EXPECT_TRUE(view.selectionModel()->isSelected(view.currentIndex()));
    rows.erase(rows.begin() + last, rows.end());
    model.setRows(rows);
    EXPECT_EQ(model.content(view.currentIndex()).row().id(), rows.back().row->id());
    EXPECT_TRUE(view.selectionModel()->isSelected(view.currentIndex()));
}

TEST_F(PullRequestListViewTests, helpStandsBelowTheRow)
{
    show(sampleRows());
    const QPoint position = inRow(0, onTitle);
    QHelpEvent help(QEvent::ToolTip, position, view.viewport()->mapToGlobal(position));
    QApplication::sendEvent(view.viewport(), &help);
    const QWidgetList widgets = QApplication::topLevelWidgets();
    const auto tip = std::ranges::find_if(
        widgets, [](const QWidget* widget) { return widget->inherits("QTipLabel"); });
    ASSERT_NE(tip, widgets.end());
    const QRect row = view.visualRect(model.index(0));
    EXPECT_GT((*tip)->y(), view.viewport()->mapToGlobal(row.bottomLeft()).y());
}

}  // namespace
