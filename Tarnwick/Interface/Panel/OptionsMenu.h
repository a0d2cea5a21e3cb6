#pragma once

#include "Tarnwick/Interface/Controls/Menu.h"
#include "Tarnwick/PullRequestMenuModel.h"

#include <functional>
#include <vector>

namespace Tarnwick {

/// The panel's options menu. Its check marks follow the model. Main thread only.
class OptionsMenu final : public Menu {
    Q_OBJECT

public:
    OptionsMenu(PullRequestMenuModel& model, QWidget* parent);

    /// Without an action there is no "Check for Updates…".
    void setUpdateCheck(bool canCheckForUpdates, std::function<void()> checkForUpdates);

Q_SIGNALS:
    void reloadRequested();
    void repositoriesRequested();
    void helpRequested();
    void quitRequested();

private:
    /// Adds an item with the check mark `isChecked`.
    void addChoice(
        Menu& menu,
        const QString& title,
        std::function<bool()> isChecked,
        const std::function<void()>& choose);
    template<typename E, typename IsChosen, typename Choose>
    void addChoices(const QString& title, IsChosen isChosen, Choose choose);
    template<auto toggle, typename E>
    void addFilter(const QString& title, std::set<E> Settings::* filter);

    void addPolling();
    void addNotifications();
    void addSettings();
    void addFilters();
    void addMutedAuthors();
    void listMutedAuthors();
    void updateCheckMarks();

    struct Choice {
        QAction* action;
        std::function<bool()> isChecked;
    };

    PullRequestMenuModel& _model;
    std::vector<Choice> _choices;
    QAction* _resetFilters = nullptr;
    Menu* _mutedAuthors = nullptr;
    QAction* _checkForUpdates;
    std::function<void()> _updateCheck;
};

}  // namespace Tarnwick
