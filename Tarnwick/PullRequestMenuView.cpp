#include "Tarnwick/PullRequestMenuView.h"

#include "PullRequestKit/PullRequestPages.h"
#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/List/FindBar.h"
#include "Tarnwick/Interface/List/ListedRows.h"
#include "Tarnwick/Interface/List/PullRequestListModel.h"
#include "Tarnwick/Interface/List/PullRequestListView.h"
#include "Tarnwick/Interface/Panel/ContentArea.h"
#include "Tarnwick/Interface/Panel/EditorFlow.h"
#include "Tarnwick/Interface/Panel/InfoBarStack.h"
#include "Tarnwick/Interface/Panel/OptionsMenu.h"
#include "Tarnwick/Interface/Panel/PanelAlerts.h"
#include "Tarnwick/Interface/Panel/PanelFooter.h"
#include "Tarnwick/Interface/Panel/PanelHeader.h"
#include "Tarnwick/Interface/Panel/WebSite.h"
#include "Tarnwick/Interface/Picker/RepositoryPicker.h"

#include <QApplication>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <chrono>

namespace Tarnwick {
namespace {

/// The time a browser may take to get the focus.
constexpr std::chrono::seconds browserComesWithin{10};

}  // namespace

PullRequestMenuView::PullRequestMenuView(PullRequestMenuModel& model, QWidget* parent)
    : QWidget(parent)
    , _model(model)
    , _page(new QWidget(this))
    , _header(new PanelHeader(_page))
    , _rows(new PullRequestListModel([&model] { return model.now(); }, this))
    , _list(new PullRequestListView(*_rows, _page))
    , _content(new ContentArea(model, _list, _page))
    , _infoBars(new InfoBarStack(model, _page))
    , _footer(new PanelFooter([&model] { return model.now(); }, _page))
    , _menu(new OptionsMenu(model, this))
    , _editorFlow(new EditorFlow(model, this))
    , _alerts(new PanelAlerts(model, *_editorFlow, this))
{
    layOut();
    connectHeader();
    connectMenu();
    connectList();
    connectModel();
}

void PullRequestMenuView::layOut()
{
    auto* const whole = new QVBoxLayout(this);
    whole->setContentsMargins(0, 0, 0, 0);
    whole->addWidget(_page);
    _column = new QVBoxLayout(_page);
    _column->setContentsMargins(0, 0, 0, 0);
    _column->setSpacing(0);
    _column->addWidget(_header);
    _column->addWidget(_content, 1);
    connect(_infoBars, &InfoBarStack::focusReleased, this, [this] { _content->setFocus(); });
    _column->addWidget(_infoBars);
    _column->addWidget(_footer);
}

void PullRequestMenuView::setUpdateCheck(
    bool canCheckForUpdates, std::function<void()> checkForUpdates)
{
    _menu->setUpdateCheck(canCheckForUpdates, std::move(checkForUpdates));
}

bool PullRequestMenuView::keepsOpen() const
{
    return QApplication::activePopupWidget() != nullptr || !_stays.hasExpired()
           || _alerts->isAnyShown() || (_picker != nullptr && _picker->keepsOpen());
}

bool PullRequestMenuView::explainClosing()
{
    if (_alerts->isAnyShown()) {
        return false;
    }
    if (_picker != nullptr) {
        hideRepositories();
    }
    _alerts->explainClosing();
    return true;
}

void PullRequestMenuView::panelShown()
{
    if (_picker == nullptr && !_alerts->isAnyShown()) {
        _content->setFocus(Qt::OtherFocusReason);
    }
}

void PullRequestMenuView::panelHidden()
{
    closeFind();
    setShowsHidden(false);
}

void PullRequestMenuView::connectHeader()
{
    _header->brand().setToolTip(webSiteToolTip());
    connect(&_header->brand(), &QAbstractButton::clicked, this, &PullRequestMenuView::openWebSite);
    connect(&_header->options(), &QAbstractButton::clicked, this, &PullRequestMenuView::showMenu);
    connect(&_header->find(), &QAbstractButton::clicked, this, [this] {
        isFinding() ? closeFind() : openFind();
    });
    connect(_content, &ContentArea::showsListChanged, this, &PullRequestMenuView::followList);
    followList();
    const auto showRefreshing = [this] { _header->setRefreshing(_model.isRefreshing()); };
    connect(&_model, &PullRequestMenuModel::isRefreshingChanged, this, showRefreshing);
    showRefreshing();
}

void PullRequestMenuView::connectMenu()
{
    connect(_menu, &OptionsMenu::reloadRequested, this, [this] { _model.refresh(); });
    connect(
        _menu, &OptionsMenu::repositoriesRequested, this, &PullRequestMenuView::showRepositories);
    connect(_menu, &OptionsMenu::helpRequested, this, &PullRequestMenuView::openWebSite);
    connect(_menu, &OptionsMenu::quitRequested, this, &PullRequestMenuView::quitRequested);
    connect(_menu, &QMenu::aboutToHide, this, [this] { _header->options().setOpen(false); });
    connect(
        _content,
        &ContentArea::repositoriesRequested,
        this,
        &PullRequestMenuView::showRepositories);
}

void PullRequestMenuView::connectList()
{
    connect(_list, &PullRequestListView::actionRequested, this, &PullRequestMenuView::act);
    connect(_list, &PullRequestListView::findRequested, this, &PullRequestMenuView::openFind);
    connect(_content, &ContentArea::showHiddenRequested, this, &PullRequestMenuView::toggleHidden);
    connect(_footer, &PanelFooter::hiddenToggled, this, &PullRequestMenuView::toggleHidden);
    connect(_alerts, &PanelAlerts::shownChanged, this, &PullRequestMenuView::updateUse);
    connect(_alerts, &PanelAlerts::closingConfirmed, this, &PullRequestMenuView::closingConfirmed);
    connect(_alerts, &PanelAlerts::projectDirectoryRequested, this, [this] {
        showRepositories();
        _picker->editProjectDirectory();
    });
    connect(_alerts, &PanelAlerts::quitRequested, this, &PullRequestMenuView::quitRequested);
    connect(_editorFlow, &EditorFlow::externalActionErrorChanged, this, [this] {
        if (_editorFlow->externalActionError()) {
            Q_EMIT attentionRequested();
        }
    });
}

/// Created on demand, so that the list appears sooner.
void PullRequestMenuView::makeFindBar()
{
    _findBar = new FindBar(_page);
    _column->insertWidget(_column->indexOf(_header) + 1, _findBar);
    connect(_findBar, &FindBar::findTextChanged, this, [this](const QString& text) {
        _rows->setFindText(text);
        showCount();
    });
    connect(_findBar, &FindBar::closed, this, [this] {
        _header->find().setOpen(false);
        _content->setFocus();
    });
    // Tab focus selects a row.
    connect(_findBar, &FindBar::leftForList, this, [this] { _list->setFocus(Qt::TabFocusReason); });
    connect(_findBar, &FindBar::hitRequested, _list, &PullRequestListView::openHit);
    QWidget* before = &_header->options();
    for (QWidget* const stop : _findBar->stops()) {
        setTabOrder(before, stop);
        before = stop;
    }
    setTabOrder(before, _list);
}

void PullRequestMenuView::connectModel()
{
    connect(&_model, &PullRequestMenuModel::rowsChanged, this, &PullRequestMenuView::showRows);
    connect(&_model, &PullRequestMenuModel::visitsChanged, this, &PullRequestMenuView::showRows);
    // Facts contain new commits.
    connect(&_model, &PullRequestMenuModel::factsChanged, this, &PullRequestMenuView::showRows);
    connect(
        &_model, &PullRequestMenuModel::hiddenChanged, this, &PullRequestMenuView::followHidden);
    connect(&_model, &PullRequestMenuModel::detailsChanged, this, &PullRequestMenuView::showRows);
    connect(&_model, &PullRequestMenuModel::turnsChanged, this, &PullRequestMenuView::showRows);
    showRows();
    followHidden();

    const auto followAccount = [this] { _list->setAccount(_model.account().value_or("")); };
    connect(&_model, &PullRequestMenuModel::accountChanged, this, followAccount);
    followAccount();

    const auto showRefreshed = [this] {
        _footer->setRefreshed(_model.lastRefreshed());
        showCount();
    };
    connect(&_model, &PullRequestMenuModel::lastRefreshedChanged, this, showRefreshed);
    showRefreshed();
}

void PullRequestMenuView::showRows()
{
    _rows->setRows(
        listedRows(_model, _showsHidden ? HiddenRows::areDimmed : HiddenRows::areLeftOut));
    showCount();
}

void PullRequestMenuView::followHidden()
{
    const HiddenCounts& hidden = _model.list().hidden();
    const bool hadFocus = _footer->isAncestorOf(focusWidget());
    if (_showsHidden) {
        if (hidden.total() == 0) {
            setShowsHidden(false);
        } else {
            showRows();
        }
    }
    _footer->setHidden(hidden, _showsHidden);
    if (hadFocus && hidden.total() == 0) {
        _content->setFocus();
    }
}

void PullRequestMenuView::toggleHidden()
{
    setShowsHidden(!_showsHidden && _model.list().hidden().total() > 0);
}

void PullRequestMenuView::setShowsHidden(bool showsHidden)
{
    if (_showsHidden == showsHidden) {
        return;
    }
    _showsHidden = showsHidden;
    _list->holdRows();
    showRows();
    _content->setShowsHidden(showsHidden);
    _footer->setHidden(_model.list().hidden(), showsHidden);
}

void PullRequestMenuView::showCount()
{
    const bool isListKnown = _model.lastRefreshed().has_value();
    const auto count = static_cast<std::size_t>(_rows->countInSight());
    _footer->setCount(isListKnown ? std::optional(count) : std::nullopt);
    if (_findBar != nullptr) {
        _findBar->setMatches(_rows->foundCount(), _rows->totalCount());
    }
}

void PullRequestMenuView::showMenu()
{
    constexpr int gap = 4;
    PushButton& button = _header->options();
    const QPoint corner = button.mapToGlobal(QPoint(button.width(), button.height() + gap));
    button.setOpen(true);
    _menu->popup(corner - QPoint(_menu->sizeHint().width(), 0));
}

void PullRequestMenuView::showRepositories()
{
    if (_picker != nullptr) {
        return;
    }
    _picker = new RepositoryPicker(_model, this);
    connect(_picker, &RepositoryPicker::done, this, &PullRequestMenuView::hideRepositories);
    layout()->addWidget(_picker);
    _page->hide();
    _picker->show();
    _picker->setFocus();
}

void PullRequestMenuView::hideRepositories()
{
    _picker->hide();
    _picker->deleteLater();
    _picker.clear();
    _page->show();
    _content->setFocus();
}

void PullRequestMenuView::openFind()
{
    if (!_content->showsList()) {
        return;
    }
    if (_findBar == nullptr) {
        makeFindBar();
    }
    _findBar->open();
    _header->find().setOpen(true);
}

void PullRequestMenuView::find(const QString& text)
{
    openFind();
    if (isFinding()) {
        _findBar->setText(text);
    }
}

/// From outside the field, the key moves the focus into it.
void PullRequestMenuView::toggleFind()
{
    if (isFinding() && _findBar->isAncestorOf(focusWidget())) {
        closeFind();
    } else {
        openFind();
    }
}

void PullRequestMenuView::followList()
{
    _header->find().setVisible(_content->showsList());
    if (!_content->showsList()) {
        closeFind();
    }
}

bool PullRequestMenuView::isFinding() const
{
    return _findBar != nullptr && _findBar->isOpen();
}

void PullRequestMenuView::closeFind()
{
    if (!isFinding()) {
        return;
    }
    const bool hadFocus = _findBar->isAncestorOf(focusWidget());
    _findBar->close();
    if (hadFocus) {
        _content->setFocus();
    }
}

void PullRequestMenuView::act(RowAction action, const PullRequestKit::PullRequest& pullRequest)
{
    switch (action) {
    case RowAction::open:
        open(pullRequest, pullRequest.url);
        break;
    case RowAction::openAndStay:
        open(pullRequest, pullRequest.url, PanelFate::stays);
        break;
    case RowAction::openInEditor:
        _editorFlow->open(pullRequest);
        break;
    case RowAction::markAsRead:
        _model.recordVisit(PullRequestKit::PullRequestID(pullRequest.id));
        break;
    case RowAction::markAsUnread:
        _model.forgetVisit(PullRequestKit::PullRequestID(pullRequest.id));
        break;
    case RowAction::muteUntilChange:
        _model.mutes().untilChange(pullRequest);
        break;
    case RowAction::muteForADay:
        _model.mutes().forADay(pullRequest);
        break;
    case RowAction::unmute:
        _model.mutes().unmute(pullRequest);
        break;
    case RowAction::muteAuthor:
        _model.mutes().setAuthor(pullRequest.author, true);
        break;
    case RowAction::unmuteAuthor:
        _model.mutes().setAuthor(pullRequest.author, false);
        break;
    case RowAction::openFiles:
        open(pullRequest, filesPage(pullRequest));
        break;
    case RowAction::openChecks:
        open(pullRequest, checksPage(pullRequest));
        break;
    }
}

/// Any page of a pull request counts as a visit. `page` is a copy because the visit can replace the
/// rows that own it.
void PullRequestMenuView::open(
    const PullRequestKit::PullRequest& pullRequest,
    PullRequestKit::Url page,  // NOLINT(performance-unnecessary-value-param)
    PanelFate fate)
{
    _model.recordVisit(pullRequest.id);
    if (fate == PanelFate::stays) {
        _stays = QDeadlineTimer(browserComesWithin);
    }
    _model.navigation().open(page, {}, fate);
}

void PullRequestMenuView::openWebSite()
{
    _model.navigation().open(webSite());
}

void PullRequestMenuView::updateUse()
{
    const bool isUsable = !_alerts->isAnyShown();
    _page->setEnabled(isUsable);
    if (!isUsable) {
        // The menu stays open for check marks, and would cover what an item opens.
        _menu->close();
    }
    if (isUsable && _page->isVisible()) {
        _content->setFocus();
    }
}

void PullRequestMenuView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || _stays.hasExpired()) {
        return;
    }
    if (isActiveWindow()) {
        _stays = QDeadlineTimer(0);
    } else {
        // The user may open more pull requests from it.
        window()->raise();
    }
}

void PullRequestMenuView::keyPressEvent(QKeyEvent* event)
{
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (_picker == nullptr && event->matches(QKeySequence::Find)) {
        toggleFind();
        return;
    }
    if (!isPlain || _picker != nullptr) {
        QWidget::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
    case Qt::Key_H:
        toggleHidden();
        break;
    case Qt::Key_R:
        _model.refresh();
        break;
    case Qt::Key_Comma:
    case Qt::Key_Menu:
        showMenu();
        _menu->setActiveAction(_menu->actions().constFirst());
        break;
    case Qt::Key_Slash:
        openFind();
        break;
    case Qt::Key_Escape:
        if (isFinding()) {
            closeFind();
        } else {
            Q_EMIT closeRequested();
        }
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

}  // namespace Tarnwick
