#include "Picker/PickerFixture.h"
#include "Support/Joined.h"

#include <QAccessible>
#include <QHelpEvent>
#include <QScrollBar>
#include <QToolTip>

namespace Tarnwick {
namespace {

using namespace TestSupport;

class PickerListViewTests : public PickerTest {
protected:
    /// Two owners with 40 repositories each, at a list height that shows about seven.
    void openMany()
    {
        std::vector<RepositorySummary> repositories;
        for (const char* const owner : {"arbour", "basin"}) {
            for (int number = 1; number <= 40; ++number) {
                repositories.push_back(
                    repositoryOf(owner + std::string("/r") + std::to_string(number)));
            }
        }
        open(repositories);
    }

    void key(Qt::Key pressed) const { QTest::keyClick(list(), pressed); }

    std::string current() const { return list()->currentIndex().data().toString().toStdString(); }

    int scrolled() const { return list()->verticalScrollBar()->value(); }

    QRect placeOf(int number) const
    {
        return list()->visualRect(list()->model()->index(number, 0));
    }
};

TEST_F(PickerListViewTests, ownersAndTheirRepositoriesLieBelowEachOther)
{
    open(someRepositories());
    EXPECT_EQ(
        joined(rows()),
        "fenland:, capstan, harbour-9, harbour-10, northmere:, almanac, beacon, quay");
    EXPECT_EQ(placeOf(0), QRect(0, 0, 420, 32));
    EXPECT_EQ(placeOf(1), QRect(0, 32, 420, 48));
    EXPECT_EQ(placeOf(4), QRect(0, 32 + 3 * 48, 420, 32));
}

TEST_F(PickerListViewTests, aClickAnywhereOnARepositoryTogglesIt)
{
    open(someRepositories());
    click(QPoint(24, 32 + 24));
    EXPECT_THAT(selected(), ElementsAre("fenland/capstan"));
    click(QPoint(300, 32 + 48 + 4));
    EXPECT_THAT(selected(), ElementsAre("fenland/capstan", "fenland/harbour-9"));
    click(QPoint(24, 32 + 24));
    EXPECT_THAT(selected(), ElementsAre("fenland/harbour-9"));
    EXPECT_EQ(current(), "capstan");
}

TEST_F(PickerListViewTests, twoQuickClicksToggleTwice)
{
    open(someRepositories());
    click(QPoint(24, 50));
    QTest::mouseDClick(list()->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(24, 50));
    EXPECT_THAT(selected(), ElementsAre("fenland/capstan"));
}

TEST_F(PickerListViewTests, aPressThatEndsInAnotherRowDoesNothing)
{
    open(someRepositories());
    QWidget* const viewport = list()->viewport();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(24, 50));
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(24, 110));
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(PickerListViewTests, anOwnersButtonIsPressedButNotTheRestOfItsLabel)
{
    open(someRepositories());
    click(QPoint(60, 16));
    EXPECT_THAT(selected(), IsEmpty());
    click(QPoint(400, 16));
    EXPECT_THAT(
        selected(), ElementsAre("fenland/capstan", "fenland/harbour-10", "fenland/harbour-9"));
    click(QPoint(400, 16));
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(PickerListViewTests, arrowsHomeAndEndMove)
{
    open(someRepositories());
    list()->setFocus(Qt::TabFocusReason);
    EXPECT_EQ(current(), "capstan");
    key(Qt::Key_Down);
    EXPECT_EQ(current(), "harbour-9");
    key(Qt::Key_Up);
    key(Qt::Key_Up);
    EXPECT_EQ(current(), "fenland");
    key(Qt::Key_End);
    EXPECT_EQ(current(), "quay");
    key(Qt::Key_Down);
    EXPECT_EQ(current(), "quay");
    key(Qt::Key_Home);
    EXPECT_EQ(current(), "fenland");
}

TEST_F(PickerListViewTests, pageKeysMoveByWhatIsSeen)
{
    openMany();
    list()->setFocus(Qt::TabFocusReason);
    const int seen = (list()->viewport()->height() - 32) / 48;
    key(Qt::Key_PageDown);
    EXPECT_EQ(current(), "r" + std::to_string(seen));
    key(Qt::Key_PageDown);
    EXPECT_EQ(current(), "r" + std::to_string(2 * seen - 1));
    key(Qt::Key_PageUp);
    key(Qt::Key_PageUp);
    EXPECT_EQ(current(), "r1");
}

TEST_F(PickerListViewTests, spaceTogglesARepository)
{
    open(someRepositories());
    list()->setFocus(Qt::TabFocusReason);
    key(Qt::Key_Space);
    EXPECT_THAT(selected(), ElementsAre("fenland/capstan"));
    key(Qt::Key_Space);
    EXPECT_THAT(selected(), IsEmpty());
    key(Qt::Key_Return);
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(PickerListViewTests, spaceAndReturnPressAnOwnersButton)
{
    open(someRepositories());
    list()->setFocus(Qt::TabFocusReason);
    key(Qt::Key_Home);
    key(Qt::Key_Space);
    EXPECT_EQ(selected().size(), 3U);
    key(Qt::Key_Return);
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(PickerListViewTests, whatMovesIntoSightClearsTheLabelAtTheTop)
{
    openMany();
    list()->setFocus(Qt::TabFocusReason);
    key(Qt::Key_End);
    EXPECT_EQ(list()->visualRect(list()->currentIndex()).bottom() + 1, list()->height() - 8);
    for (int step = 0; step < 20; ++step) {
        key(Qt::Key_Up);
        const QRect place = list()->visualRect(list()->currentIndex());
        EXPECT_GE(place.top(), 32);
        EXPECT_LE(place.bottom(), list()->viewport()->height());
    }
}

TEST_F(PickerListViewTests, theLabelOfTheOwnerInSightStaysAtTheTop)
{
    openMany();
    list()->verticalScrollBar()->setValue(500);
    EXPECT_EQ(placeOf(0), QRect(0, 0, 420, 32));
    EXPECT_EQ(list()->indexAt(QPoint(100, 31)).data().toString(), QStringLiteral("arbour"));
    EXPECT_NE(list()->indexAt(QPoint(100, 32)).data().toString(), QStringLiteral("arbour"));
    click(QPoint(400, 16));
    EXPECT_EQ(selected().size(), 40U);
    EXPECT_EQ(scrolled(), 500);

    // The second label lies 20 below the top and has pushed 12 of the first one out.
    list()->verticalScrollBar()->setValue(32 + 40 * 48 - 20);
    EXPECT_EQ(placeOf(0), QRect(0, -12, 420, 32));
    EXPECT_EQ(placeOf(41), QRect(0, 20, 420, 32));
}

TEST_F(PickerListViewTests, aRowHalfOutOfSightStaysWhereItIsClicked)
{
    openMany();
    list()->verticalScrollBar()->setValue(70);
    click(QPoint(100, 40));
    EXPECT_EQ(scrolled(), 70);
    EXPECT_EQ(current(), "r2");
    EXPECT_THAT(selected(), ElementsAre("arbour/r2"));
}

TEST_F(PickerListViewTests, whatIsInSightStaysWhenRepositoriesComeAndGo)
{
    openMany();
    list()->setFocus(Qt::TabFocusReason);
    key(Qt::Key_End);
    const QPersistentModelIndex last(list()->currentIndex());
    const QRect place = list()->visualRect(last);
    std::vector<std::string> names{"arbour/a-new-one", "arbour/another"};
    for (int number = 1; number <= 40; ++number) {
        names.push_back("basin/r" + std::to_string(number));
    }
    provider->setRepositories(names);
    refresh();
    processEvents();
    EXPECT_EQ(list()->model()->rowCount(), 44);
    EXPECT_EQ(list()->currentIndex(), last);
    EXPECT_EQ(current(), "r40");
    EXPECT_EQ(list()->visualRect(last), place);
}

TEST_F(PickerListViewTests, upInTheFirstRowGoesToTheField)
{
    open(someRepositories());
    list()->setFocus(Qt::TabFocusReason);
    key(Qt::Key_Up);
    EXPECT_TRUE(list()->hasFocus());
    key(Qt::Key_Up);
    EXPECT_TRUE(findField()->hasFocus());
}

TEST_F(PickerListViewTests, whatIsTypedInTheListGoesToTheField)
{
    open(someRepositories());
    list()->setFocus(Qt::TabFocusReason);
    QTest::keyClicks(list(), QStringLiteral("q"));
    EXPECT_TRUE(findField()->hasFocus());
    EXPECT_EQ(findField()->text(), QStringLiteral("q"));
    EXPECT_THAT(rows(), ElementsAre("northmere:", "quay"));
}

TEST_F(PickerListViewTests, aNameThatIsCutShortIsToldInAToolTip)
{
    const std::string longName(90, 'w');
    open({repositoryOf("a/" + longName), repositoryOf("a/z")});
    const auto helpAt = [this](const QPoint& position) {
        QHelpEvent event(QEvent::ToolTip, position, list()->viewport()->mapToGlobal(position));
        QApplication::sendEvent(list()->viewport(), &event);
        return QToolTip::text().toStdString();
    };
    EXPECT_EQ(helpAt(QPoint(100, 90)), "");
    EXPECT_THAT(helpAt(QPoint(100, 40)), HasSubstr(longName));
}

TEST_F(PickerListViewTests, thePointerTellsTheButton)
{
    open(someRepositories());
    QTest::mouseMove(list()->viewport(), QPoint(400, 16));
    EXPECT_EQ(list()->viewport()->cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseMove(list()->viewport(), QPoint(100, 16));
    EXPECT_EQ(list()->viewport()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(PickerListViewTests, rowsAreListItemsForScreenReaders)
{
    open(someRepositories(), {"fenland/capstan"});
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(list());
    ASSERT_NE(accessible, nullptr);
    EXPECT_EQ(accessible->role(), QAccessible::List);
    EXPECT_EQ(accessible->text(QAccessible::Name), QStringLiteral("Repositories"));
    QAccessibleInterface* const owner = accessible->child(0);
    EXPECT_EQ(owner->role(), QAccessible::ListItem);
    EXPECT_EQ(owner->text(QAccessible::Name), QStringLiteral("fenland, Select All"));
    QAccessibleInterface* const repository = accessible->child(1);
    EXPECT_EQ(repository->text(QAccessible::Name), QStringLiteral("fenland/capstan, Public, Rust"));
    EXPECT_TRUE(repository->state().checked);
    EXPECT_FALSE(accessible->child(2)->state().checked);
    EXPECT_EQ(
        repository->rect(), QRect(list()->viewport()->mapToGlobal(QPoint(0, 32)), QSize(420, 48)));
}

}  // namespace
}  // namespace Tarnwick
