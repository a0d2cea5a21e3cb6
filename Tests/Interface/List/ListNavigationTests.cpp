#include "Tarnwick/Interface/List/ListNavigation.h"

#include <QKeyEvent>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace Tarnwick;

std::optional<ListCommand> commandOf(
    Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {})
{
    return listCommand(QKeyEvent(QEvent::KeyPress, key, modifiers, text));
}

TEST(ListKeys, lettersMoveAsArrowsDo)
{
    EXPECT_EQ(commandOf(Qt::Key_J), ListCommand::down);
    EXPECT_EQ(commandOf(Qt::Key_Down), ListCommand::down);
    EXPECT_EQ(commandOf(Qt::Key_K), ListCommand::up);
    EXPECT_EQ(commandOf(Qt::Key_Up), ListCommand::up);
}

TEST(ListKeys, theKeypadsKeysAreTheOthers)
{
    EXPECT_EQ(commandOf(Qt::Key_Enter, Qt::KeypadModifier), ListCommand::open);
    EXPECT_EQ(commandOf(Qt::Key_PageDown, Qt::KeypadModifier), ListCommand::pageDown);
}

TEST(ListKeys, theSlashIsFoundWhereverTheLayoutHasIt)
{
    EXPECT_EQ(commandOf(Qt::Key_Slash, Qt::NoModifier, u"/"_s), ListCommand::find);
    EXPECT_EQ(commandOf(Qt::Key_7, Qt::ShiftModifier, u"/"_s), ListCommand::find);
    EXPECT_EQ(commandOf(Qt::Key_Slash, Qt::ControlModifier, u"/"_s), std::nullopt);
}

TEST(ListKeys, controlOpensInOtherWays)
{
    EXPECT_EQ(commandOf(Qt::Key_E, Qt::ControlModifier), ListCommand::openInEditor);
    EXPECT_EQ(commandOf(Qt::Key_Return, Qt::ControlModifier), ListCommand::openAndStay);
    EXPECT_EQ(commandOf(Qt::Key_E), std::nullopt);
}

TEST(ListKeys, controlAndArrowsMoveByGroups)
{
    EXPECT_EQ(commandOf(Qt::Key_Down, Qt::ControlModifier), ListCommand::nextGroup);
    EXPECT_EQ(commandOf(Qt::Key_Up, Qt::ControlModifier), ListCommand::previousGroup);
}

TEST(ListKeys, otherKeysWithModifiersAreNotTheLists)
{
    EXPECT_EQ(commandOf(Qt::Key_J, Qt::ControlModifier), std::nullopt);
    EXPECT_EQ(commandOf(Qt::Key_Menu), ListCommand::showMenu);
    EXPECT_EQ(commandOf(Qt::Key_Return, Qt::AltModifier), std::nullopt);
    EXPECT_EQ(commandOf(Qt::Key_F10), std::nullopt);
    EXPECT_EQ(commandOf(Qt::Key_F10, Qt::ShiftModifier), ListCommand::showMenu);
}

/// Ten rows of 50 in a page of 170, three of which fit.
const ListExtent tenRows{.count = 10, .firstInSight = 4, .pageHeight = 170, .placeOf = [](int row) {
                             return QRect(0, row * 50, 420, 50);
                         }};

TEST(ListNavigation, withoutASelectionTheFirstRowInSightIsNext)
{
    EXPECT_EQ(targetRow(ListCommand::down, -1, tenRows), 4);
    EXPECT_EQ(targetRow(ListCommand::up, -1, tenRows), 4);
    EXPECT_EQ(targetRow(ListCommand::pageDown, -1, tenRows), 4);
    EXPECT_EQ(targetRow(ListCommand::last, -1, tenRows), 9);
}

TEST(ListNavigation, aPageHasAsManyRowsAsFitWhole)
{
    EXPECT_EQ(targetRow(ListCommand::pageDown, 0, tenRows), 2);
    EXPECT_EQ(targetRow(ListCommand::pageUp, 5, tenRows), 3);
    EXPECT_EQ(targetRow(ListCommand::pageDown, 9, tenRows), 9);
    EXPECT_EQ(targetRow(ListCommand::pageUp, 1, tenRows), 0);
}

TEST(ListNavigation, aPageLowerThanARowStillMoves)
{
    ListExtent low = tenRows;
    low.pageHeight = 30;
    EXPECT_EQ(targetRow(ListCommand::pageDown, 3, low), 4);
    EXPECT_EQ(targetRow(ListCommand::pageUp, 3, low), 2);
}

TEST(ListNavigation, theEndsHold)
{
    EXPECT_EQ(targetRow(ListCommand::up, 0, tenRows), 0);
    EXPECT_EQ(targetRow(ListCommand::down, 9, tenRows), 9);
    EXPECT_EQ(targetRow(ListCommand::first, 7, tenRows), 0);
}

/// Headings of 50 at 0, 3 and 5, and rows between them and up to 7.
const ListExtent grouped{
    .count = 8,
    .firstInSight = 4,
    .pageHeight = 170,
    .placeOf = [](int row) { return QRect(0, row * 50, 420, 50); },
    .isHeading = [](int row) { return row == 0 || row == 3 || row == 5; }};

TEST(ListNavigation, headingsArePassed)
{
    EXPECT_EQ(targetRow(ListCommand::first, 6, grouped), 1);
    EXPECT_EQ(targetRow(ListCommand::last, 1, grouped), 7);
    EXPECT_EQ(targetRow(ListCommand::down, 2, grouped), 4);
    EXPECT_EQ(targetRow(ListCommand::up, 4, grouped), 2);
    EXPECT_EQ(targetRow(ListCommand::up, 1, grouped), 1);
    EXPECT_EQ(targetRow(ListCommand::down, 7, grouped), 7);
    EXPECT_EQ(targetRow(ListCommand::pageDown, 2, grouped), 4);
    EXPECT_EQ(targetRow(ListCommand::pageDown, 4, grouped), 6);
    EXPECT_EQ(targetRow(ListCommand::pageUp, 7, grouped), 6);
    EXPECT_EQ(targetRow(ListCommand::pageUp, 2, grouped), 1);
}

TEST(ListNavigation, groupsAreSteppedThrough)
{
    EXPECT_EQ(targetRow(ListCommand::nextGroup, 1, grouped), 4);
    EXPECT_EQ(targetRow(ListCommand::nextGroup, 4, grouped), 6);
    EXPECT_EQ(targetRow(ListCommand::nextGroup, 6, grouped), 6);
    EXPECT_EQ(targetRow(ListCommand::nextGroup, 7, grouped), 7);
    EXPECT_EQ(targetRow(ListCommand::previousGroup, 7, grouped), 6);
    EXPECT_EQ(targetRow(ListCommand::previousGroup, 6, grouped), 4);
    EXPECT_EQ(targetRow(ListCommand::previousGroup, 2, grouped), 1);
    EXPECT_EQ(targetRow(ListCommand::previousGroup, 1, grouped), 1);
    EXPECT_EQ(targetRow(ListCommand::nextGroup, -1, grouped), 4);
    EXPECT_EQ(targetRow(ListCommand::previousGroup, -1, grouped), 4);
}

}  // namespace
