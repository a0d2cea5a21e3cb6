#include "Tarnwick/Interface/Panel/OptionsMenu.h"

#include "Tarnwick/Interface/List/Names.h"
#include "Tarnwick/Interface/Style/Appearance.h"

#include <string_view>

namespace Tarnwick {
namespace {

QString titleOf(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

OptionsMenu::OptionsMenu(PullRequestMenuModel& model, QWidget* parent)
    : Menu(QStringLiteral("List options"), parent)
    , _model(model)
{
    setObjectName(QStringLiteral("optionsMenu"));
    setAccessibleName(title());
    // The divider above "Filters" stays, although a section title follows.
    setSeparatorsCollapsible(false);

    QAction* const reload =
        addAction(QStringLiteral("Reload"), this, &OptionsMenu::reloadRequested);
    // For display and screen readers only: the panel handles the key. The same goes for "Quit".
    reload->setShortcut(Qt::Key_R);
    addPolling();
    addNotifications();
    addSettings();
    addSeparator();
    addSection(QStringLiteral("Filters"));
    addAction(QStringLiteral("Repositories"), this, &OptionsMenu::repositoriesRequested);
    addFilters();
    addSeparator();
    addChoices<Arrangement>(
        QStringLiteral("Arrange"),
        [this](Arrangement value) { return _model.settings().arrangement == value; },
        [this](Arrangement value) { _model.setArrangement(value); });
    addMutedAuthors();
    addSeparator();
    _checkForUpdates =
        addAction(QStringLiteral("Check for Updates…"), this, [this] { _updateCheck(); });
    _checkForUpdates->setVisible(false);
    addAction(QStringLiteral("Help"), this, &OptionsMenu::helpRequested);
    QAction* const quit = addAction(QStringLiteral("Quit"), this, &OptionsMenu::quitRequested);
    quit->setShortcut(Qt::CTRL | Qt::Key_Q);

    constexpr int leastWidth = 216;
    setMinimumWidth(appearance().scaled(leastWidth));
    connect(&model, &PullRequestMenuModel::settingsChanged, this, &OptionsMenu::updateCheckMarks);
    connect(
        &model,
        &PullRequestMenuModel::launchAtLoginEnabledChanged,
        this,
        &OptionsMenu::updateCheckMarks);
    updateCheckMarks();
}

void OptionsMenu::setUpdateCheck(bool canCheckForUpdates, std::function<void()> checkForUpdates)
{
    _updateCheck = std::move(checkForUpdates);
    _checkForUpdates->setVisible(static_cast<bool>(_updateCheck));
    _checkForUpdates->setEnabled(canCheckForUpdates);
}

void OptionsMenu::addChoice(
    Menu& menu,
    const QString& title,
    std::function<bool()> isChecked,
    const std::function<void()>& choose)
{
    QAction* const action = menu.addAction(title);
    action->setCheckable(true);
    _choices.push_back({action, std::move(isChecked)});
    connect(action, &QAction::triggered, this, [this, choose] {
        choose();
        // Qt has already toggled the check mark, but the action may have failed.
        updateCheckMarks();
    });
}

template<typename E, typename IsChosen, typename Choose>
void OptionsMenu::addChoices(const QString& title, IsChosen isChosen, Choose choose)
{
    Menu* const menu = addSubmenu(title);
    for (const auto& [named, name] : PullRequestKit::EnumNames<E>::names) {
        addChoice(
            *menu,
            titleOf(name),
            [isChosen, value = named] { return isChosen(value); },
            [choose, value = named] { choose(value); });
    }
}

/// `toggle` is a member function of the model.
template<auto toggle, typename E>
void OptionsMenu::addFilter(const QString& title, std::set<E> Settings::* filter)
{
    addChoices<E>(
        title,
        [this, filter](E value) { return (_model.settings().*filter).contains(value); },
        [this](E value) { (_model.*toggle)(value); });
}

void OptionsMenu::addPolling()
{
    Menu* const menu = addSubmenu(QStringLiteral("Polling"));
    for (const auto& [interval, label] : pollingIntervals) {
        addChoice(
            *menu,
            titleOf(label),
            [this, value = interval] { return _model.settings().pollingInterval == value; },
            [this, value = interval] { _model.setPollingInterval(value); });
    }
}

void OptionsMenu::addNotifications()
{
    Menu* const menu = addSubmenu(QStringLiteral("Notifications"));
    addChoice(
        *menu,
        QStringLiteral("New PR"),
        [this] { return _model.settings().newPullRequestNotificationsEnabled; },
        [this] { _model.toggleNewPullRequestNotifications(); });
    addChoice(
        *menu,
        QStringLiteral("Unblocked"),
        [this] { return _model.settings().unblockedNotificationsEnabled; },
        [this] { _model.toggleUnblockedNotifications(); });
    addChoice(
        *menu,
        QStringLiteral("Your turn"),
        [this] { return _model.settings().yourTurnNotificationsEnabled; },
        [this] { _model.toggleYourTurnNotifications(); });
}

void OptionsMenu::addSettings()
{
    Menu* const menu = addSubmenu(QStringLiteral("Settings"));
    addChoice(
        *menu,
        QStringLiteral("Open at Login"),
        [this] { return _model.launchAtLoginEnabled(); },
        [this] { _model.toggleLaunchAtLogin(); });
    addChoice(
        *menu,
        QStringLiteral("Dark Mode"),
        [this] { return _model.settings().darkMode; },
        [this] { _model.setDarkMode(!_model.settings().darkMode); });
}

void OptionsMenu::addFilters()
{
    addChoices<ReviewerFilter>(
        QStringLiteral("Reviewers"),
        [this](ReviewerFilter value) { return _model.settings().reviewerFilter == value; },
        [this](ReviewerFilter value) { _model.setReviewerFilter(value); });
    addFilter<&PullRequestMenuModel::toggleStatus>(QStringLiteral("Status"), &Settings::statuses);
    addFilter<&PullRequestMenuModel::toggleChecks>(QStringLiteral("Checks"), &Settings::checks);
    addFilter<&PullRequestMenuModel::toggleReviewFilter>(
        QStringLiteral("Reviews"), &Settings::reviewFilters);
    addFilter<&PullRequestMenuModel::toggleMergeability>(
        QStringLiteral("Merge-ready"), &Settings::mergeabilities);
    _resetFilters =
        addAction(QStringLiteral("Reset Filters"), this, [this] { _model.resetFilters(); });
}

/// Even authors without pull requests can be unmuted here. Not shown when empty.
void OptionsMenu::addMutedAuthors()
{
    _mutedAuthors = addSubmenu(QStringLiteral("Muted Authors"));
    // Not while the menu is open, so that an author unmuted by mistake can be muted again.
    connect(this, &QMenu::aboutToShow, this, &OptionsMenu::listMutedAuthors);
    listMutedAuthors();
}

void OptionsMenu::listMutedAuthors()
{
    _mutedAuthors->clear();
    for (const std::string& author : _model.settings().mutedAuthors) {
        QAction* const action = _mutedAuthors->addAction(Names::inMenu(author));
        action->setCheckable(true);
        action->setChecked(true);
        connect(action, &QAction::triggered, this, [this, author](bool isChecked) {
            _model.mutes().setAuthor(author, isChecked);
        });
    }
    _mutedAuthors->menuAction()->setVisible(!_mutedAuthors->isEmpty());
}

void OptionsMenu::updateCheckMarks()
{
    for (const Choice& choice : _choices) {
        choice.action->setChecked(choice.isChecked());
    }
    _resetFilters->setVisible(!hasDefaultFilters(_model.settings()));
}

}  // namespace Tarnwick
