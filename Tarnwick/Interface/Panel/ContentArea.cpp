#include "Tarnwick/Interface/Panel/ContentArea.h"

#include "Tarnwick/Interface/Panel/AuthenticationPanel.h"
#include "Tarnwick/Interface/Panel/StatusPanel.h"

namespace Tarnwick {

ContentArea::ContentArea(
    PullRequestMenuModel& model, QWidget* list, const Appearance& appearance, QWidget* parent)
    : QStackedWidget(parent)
    , _model(model)
    , _list(list)
    , _status(new StatusPanel(appearance, this))
    , _authentication(new AuthenticationPanel(appearance, this))
{
    setObjectName(QStringLiteral("content"));
    for (QWidget* const page :
         {_list, static_cast<QWidget*>(_status), static_cast<QWidget*>(_authentication)}) {
        addWidget(page);
    }
    const auto tryAgain = [this] { _model.refresh(); };
    connect(_status, &StatusPanel::tryAgainRequested, this, tryAgain);
    connect(
        _status, &StatusPanel::repositoriesRequested, this, &ContentArea::repositoriesRequested);
    connect(_status, &StatusPanel::showHiddenRequested, this, &ContentArea::showHiddenRequested);
    connect(_authentication, &AuthenticationPanel::tryAgainRequested, this, tryAgain);
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
    const HiddenCounts& hidden = _model.hidden();
    const PanelContent content = panelContent(
        _model.state(),
        !_model.rows().empty() || (_showsHidden && hidden.total() > 0),
        _model.settings().selectedRepositories.empty(),
        hidden);
    if (const auto* const status = std::get_if<StatusContent>(&content)) {
        _status->show(*status);
        setCurrentWidget(_status);
    } else if (const auto* const login = std::get_if<AuthenticationContent>(&content)) {
        _authentication->show(*login);
        setCurrentWidget(_authentication);
    } else {
        setCurrentWidget(_list);
    }
    setFocusProxy(currentWidget());
    if (hadFocus) {
        currentWidget()->setFocus();
    }
    if (showsList() != showedList) {
        Q_EMIT showsListChanged();
    }
}

}  // namespace Tarnwick
