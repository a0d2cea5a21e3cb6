#include "List/ListViewFixture.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>

#include <memory>

namespace {

using namespace Qt::StringLiterals;
using namespace TestSupport;

class RowMenuTests : public ListViewTest {};

QAction* actionNamed(const QMenu& menu, const QString& name)
{
    for (QAction* const action : menu.actions()) {
        if (action->text() == name) {
            return action;
        }
    }
    return nullptr;
}

/// "-" for a divider.
QStringList namesIn(const QMenu& menu)
{
    QStringList names;
    for (const QAction* const action : menu.actions()) {
        names.append(action->isSeparator() ? u"-"_s : action->text());
    }
    return names;
}

TEST_F(RowMenuTests, onlyARowWithChecksOpensThem)
{
    std::vector<ListedRow> rows = plainRows(2);
    own(rows[0]).pullRequest.checks = {};
    own(rows[1]).pullRequest.checks = {2, 3, 0};
    show(rows);
    const auto opensChecks = [&](int row) {
        const std::unique_ptr<QMenu> menu(menuOf(row));
        QAction* const checks = actionNamed(*menu, u"Open Checks"_s);
        checks->trigger();
        return checks->isEnabled();
    };
    EXPECT_FALSE(opensChecks(0));
    EXPECT_TRUE(opensChecks(1));
    EXPECT_THAT(numbers[RowAction::openChecks], ElementsAre(2));
}

TEST_F(RowMenuTests, aRowsMenuOpensAndCopies)
{
    show(plainRows(3));
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_TRUE(view.isMenuOpen());
    const auto* const menu = view.findChild<QMenu*>(u"rowMenu"_s);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(
        namesIn(*menu).join(u", "_s),
        u"Open in Browser, Open in Editor, Open Files, Open Checks, -, Mark as Read, Mute, -, "
        u"Copy Link, Copy Branch Name"_s);
    actionNamed(*menu, u"Open in Browser"_s)->trigger();
    actionNamed(*menu, u"Open in Editor"_s)->trigger();
    actionNamed(*menu, u"Open Files"_s)->trigger();
    EXPECT_THAT(numbers[RowAction::openFiles], ElementsAre(2));
    EXPECT_THAT(numbers[RowAction::open], ElementsAre(2));
    EXPECT_THAT(numbers[RowAction::openInEditor], ElementsAre(2));
    actionNamed(*menu, u"Copy Link"_s)->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), u"https://github.com/octo/tools/pull/2"_s);
    actionNamed(*menu, u"Copy Branch Name"_s)->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), u"branch-2"_s);
}

TEST_F(RowMenuTests, theMenuKeyOpensTheMenuOfARowThatHasTheFocus)
{
    show(plainRows(3));
    QKeyEvent key(QEvent::KeyPress, Qt::Key_Menu, Qt::NoModifier);
    QApplication::sendEvent(&view, &key);
    EXPECT_FALSE(key.isAccepted()) << "without a row it is the panel's";
    EXPECT_FALSE(view.isMenuOpen());
    press(Qt::Key_Down);
    QContextMenuEvent byKey(QContextMenuEvent::Keyboard, inRow(0, onTitle), QPoint(1, 1));
    QApplication::sendEvent(view.viewport(), &byKey);
    EXPECT_FALSE(view.isMenuOpen()) << "the key itself opens it";
    press(Qt::Key_Menu);
    EXPECT_TRUE(view.isMenuOpen());
}

TEST_F(RowMenuTests, aPressByAScreenReaderClosesARowsMenu)
{
    show(plainRows(3));
    QContextMenuEvent byMouse(QContextMenuEvent::Mouse, inRow(1, onTitle), QPoint(1, 1));
    QApplication::sendEvent(view.viewport(), &byMouse);
    ASSERT_TRUE(view.isMenuOpen());
    auto* const menu = view.findChild<QMenu*>(u"rowMenu"_s);
    QAccessible::queryAccessibleInterface(menu)->child(0)->actionInterface()->doAction(
        QAccessibleActionInterface::pressAction());
    QApplication::processEvents();
    EXPECT_THAT(numbers[RowAction::open], ElementsAre(2));
    EXPECT_FALSE(view.isMenuOpen());
}

TEST_F(RowMenuTests, aRowIsMarkedAsReadOrUnread)
{
    std::vector<ListedRow> rows = plainRows(2);
    rows[0].isVisited = true;
    show(rows);
    for (const int row : {0, 1}) {
        const std::unique_ptr<QMenu> menu(menuOf(row));
        const QString name = row == 0 ? u"Mark as Unread"_s : u"Mark as Read"_s;
        EXPECT_EQ(namesIn(*menu).value(5), name);
        actionNamed(*menu, name)->trigger();
    }
    EXPECT_THAT(numbers[RowAction::markAsUnread], ElementsAre(1));
    EXPECT_THAT(numbers[RowAction::markAsRead], ElementsAre(2));
}

TEST_F(RowMenuTests, aRowOrItsAuthorIsMuted)
{
    std::vector<ListedRow> rows = plainRows(4);
    own(rows[0]).pullRequest.author = "mira-k";
    own(rows[1]).pullRequest.author = "Me";
    own(rows[2]).pullRequest.author = "a&b-whose-name-is-longer-than-it-should-be";
    own(rows[3]).pullRequest.author = "";
    view.setAccount("me");
    show(rows);
    const auto choicesOf = [&](int row) {
        const std::unique_ptr<QMenu> menu(menuOf(row));
        QMenu* const mute = actionNamed(*menu, u"Mute"_s)->menu();
        for (QAction* const action : mute->actions()) {
            action->trigger();
        }
        return namesIn(*mute);
    };
    const QStringList alone{u"Until It Changes"_s, u"For a Day"_s};
    EXPECT_EQ(choicesOf(0), alone + QStringList({u"-"_s, u"All by mira-k"_s}));
    EXPECT_EQ(choicesOf(1), alone) << "one's own";
    EXPECT_EQ(choicesOf(2).last(), u"All by a&&b-whose-name-is-longe…"_s);
    EXPECT_EQ(choicesOf(3), alone) << "nobody's";
    EXPECT_THAT(numbers[RowAction::muteUntilChange], ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(numbers[RowAction::muteForADay], ElementsAre(1, 2, 3, 4));
    EXPECT_THAT(numbers[RowAction::muteAuthor], ElementsAre(1, 3));
}

TEST_F(RowMenuTests, aMutedRowIsUnmuted)
{
    std::vector<ListedRow> rows = plainRows(2);
    own(rows[1]).pullRequest.author = "otter-bot";
    rows[0].sight = Sight::muted;
    rows[1].sight = Sight::authorMuted;
    show(rows);
    for (const int row : {0, 1}) {
        const std::unique_ptr<QMenu> menu(menuOf(row));
        EXPECT_EQ(actionNamed(*menu, u"Mute"_s), nullptr);
        const QString name = row == 0 ? u"Unmute"_s : u"Unmute otter-bot"_s;
        EXPECT_EQ(namesIn(*menu).value(6), name);
        actionNamed(*menu, name)->trigger();
    }
    EXPECT_THAT(numbers[RowAction::unmute], ElementsAre(1));
    EXPECT_THAT(numbers[RowAction::unmuteAuthor], ElementsAre(2));
}

}  // namespace
