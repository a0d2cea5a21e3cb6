#include "Tarnwick/Interface/Panel/ContentArea.h"

#include "Tarnwick/Interface/Panel/Notice.h"

namespace Tarnwick {

ContentArea::ContentArea(PullRequestMenuModel& model, QWidget* list, QWidget* parent)
    : QStackedWidget(parent)
    , _model(model)
    , _list(list)
    , _notice(new Notice(this))
{
    setObjectName(QStringLiteral("content"));
    addWidget(_list);
    addWidget(_notice);
    connect(_notice, &Notice::triggered, this, [this](NoticeAction action) {
        switch (action) {
        case NoticeAction::tryAgain:
            _model.refresh();
            break;
        case NoticeAction::chooseRepositories:
            Q_EMIT repositoriesRequested();
            break;
        case NoticeAction::showHidden:
            Q_EMIT showHiddenRequested();
            break;
        case NoticeAction::copyLogin:
            break;
        }
    });
    connect(&model, &PullRequestMenuModel::stateChanged, this, &ContentArea::update);
    connect(&model, &PullRequestMenuModel::rowsChanged, this, &ContentArea::update);
    connect(&model, &PullRequestMenuModel::hiddenChanged, this, &ContentArea::update);
    connect(&model, &PullRequestMenuModel::settingsChanged, this, &ContentArea::update);
    update();
}

void ContentArea::setShowsHidden(bool showsHidden)
{
    _showsHidden = showsHidden;
    update();
}

void ContentArea::update()
{
    const bool showedList = showsList();
    const bool hadFocus = isAncestorOf(window()->focusWidget());
    const HiddenCounts& hidden = _model.list().hidden();
    const std::optional<NoticeContent> notice = panelContent(
        _model.state(),
        !_model.rows().empty() || (_showsHidden && hidden.total() > 0),
        _model.settings().selectedRepositories.empty(),
        hidden);
    if (notice) {
        _notice->show(*notice);
    }
    setCurrentWidget(notice ? _notice : _list);
    setFocusProxy(currentWidget());
    if (hadFocus) {
        currentWidget()->setFocus();
    }
    if (showsList() != showedList) {
        Q_EMIT showsListChanged();
    }
}

}  // namespace Tarnwick
