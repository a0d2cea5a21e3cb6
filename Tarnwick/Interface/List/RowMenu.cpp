#include "Tarnwick/Interface/List/RowMenu.h"

#include "Tarnwick/Interface/List/Names.h"
#include "Tarnwick/Interface/List/RowWording.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>

namespace Tarnwick {
namespace {

using Choose = std::function<void(RowAction)>;

QAction* addChoice(Menu& menu, const QString& title, RowAction action, const Choose& choose)
{
    return menu.addAction(title, &menu, [choose, action] { choose(action); });
}

void addCopy(Menu& menu, const QString& title, const std::string& text)
{
    menu.addAction(title, &menu, [copied = QString::fromStdString(text)] {
        QGuiApplication::clipboard()->setText(copied);
    });
}

void addMutes(Menu& menu, const ListedRow& row, const std::string& account, const Choose& choose)
{
    const std::string& author = row.row->pullRequest.author;
    if (row.sight == Sight::muted) {
        addChoice(menu, QStringLiteral("Unmute"), RowAction::unmute, choose);
        return;
    }
    if (row.sight == Sight::authorMuted) {
        addChoice(
            menu,
            QStringLiteral("Unmute ") + Names::inMenu(author),
            RowAction::unmuteAuthor,
            choose);
        return;
    }
    Menu& mute = *menu.addSubmenu(QStringLiteral("Mute"));
    addChoice(mute, QStringLiteral("Until It Changes"), RowAction::muteUntilChange, choose);
    addChoice(mute, QStringLiteral("For a Day"), RowAction::muteForADay, choose);
    if (!Names::inMenu(author).isEmpty() && !Logins{account}.contains(author)) {
        mute.addSeparator();
        addChoice(
            mute, QStringLiteral("All by ") + Names::inMenu(author), RowAction::muteAuthor, choose);
    }
}

}  // namespace

Menu* makeRowMenu(
    const ListedRow& row, const std::string& account, const Choose& choose, QWidget* parent)
{
    const PullRequestKit::PullRequest& pullRequest = row.row->pullRequest;
    auto* const menu = new Menu(QString(), parent);
    menu->setObjectName(QStringLiteral("rowMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addChoice(*menu, QStringLiteral("Open in Browser"), RowAction::open, choose);
    addChoice(*menu, RowWording::editorToolTip, RowAction::openInEditor, choose);
    addChoice(*menu, QStringLiteral("Open Files"), RowAction::openFiles, choose);
    addChoice(*menu, QStringLiteral("Open Checks"), RowAction::openChecks, choose)
        ->setEnabled(pullRequest.checks.total > 0);
    menu->addSeparator();
    if (row.isVisited) {
        addChoice(*menu, QStringLiteral("Mark as Unread"), RowAction::markAsUnread, choose);
    } else {
        addChoice(*menu, QStringLiteral("Mark as Read"), RowAction::markAsRead, choose);
    }
    addMutes(*menu, row, account, choose);
    menu->addSeparator();
    addCopy(*menu, QStringLiteral("Copy Link"), pullRequest.url.text);
    addCopy(*menu, QStringLiteral("Copy Branch Name"), pullRequest.head.name);
    return menu;
}

}  // namespace Tarnwick
