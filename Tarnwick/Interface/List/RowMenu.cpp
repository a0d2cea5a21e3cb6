#include "Tarnwick/Interface/List/RowMenu.h"

#include "Tarnwick/Interface/List/RowWording.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>

#include <utility>

namespace Tarnwick {
namespace {

void addCopy(Menu& menu, const QString& title, const std::string& text)
{
    const QString copied = QString::fromStdString(text);
    QObject::connect(menu.addAction(title), &QAction::triggered, &menu, [copied] {
        QGuiApplication::clipboard()->setText(copied);
    });
}

}  // namespace

Menu* makeRowMenu(
    const PullRequestKit::PullRequest& pullRequest,
    RowMenuActions actions,
    const Appearance& appearance,
    QWidget* parent)
{
    auto* const menu = new Menu(QString(), appearance, parent);
    menu->setObjectName(QStringLiteral("rowMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QObject::connect(
        menu->addAction(QStringLiteral("Open in Browser")),
        &QAction::triggered,
        menu,
        std::move(actions.open));
    QObject::connect(
        menu->addAction(RowWording::editorHelpText),
        &QAction::triggered,
        menu,
        std::move(actions.openInEditor));
    menu->addSeparator();
    addCopy(*menu, QStringLiteral("Copy Link"), pullRequest.url.text);
    addCopy(*menu, QStringLiteral("Copy Branch Name"), pullRequest.head.name);
    return menu;
}

}  // namespace Tarnwick
