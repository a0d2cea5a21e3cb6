#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QDeadlineTimer>
#include <QPointer>
#include <QWidget>

#include <functional>

class QVBoxLayout;

namespace Tarnwick {

class ContentArea;
class EditorFlow;
class FindBar;
class OptionsMenu;
class PanelAlerts;
class PanelFooter;
class PanelHeader;
class PullRequestListModel;
class PullRequestListView;
class RepositoryPicker;
class InfoBarStack;
enum class RowAction;

/// The panel: header, content, footer, options menu, alerts and the editor's overlay. All actions
/// are operations of the model or the desktop. Main thread only.
class PullRequestMenuView final : public QWidget {
    Q_OBJECT

public:
    /// Requires: `model` outlives the view.
    explicit PullRequestMenuView(PullRequestMenuModel& model, QWidget* parent = nullptr);

    /// Without an action the options menu has no "Check for Updates…".
    void setUpdateCheck(bool canCheckForUpdates, std::function<void()> checkForUpdates);

    /// Whether a menu, an alert, a dialog or the editor's overlay is open, so that the panel must
    /// not close when it loses the focus.
    bool keepsOpen() const;

    /// Explains that the program keeps running after its window is closed. Returns false if this or
    /// another card is already shown.
    bool explainClosing();

    /// Opens the find bar with this text, if there is a list.
    void find(const QString& text);

    /// Call when the panel is shown and hidden; timers run only in between.
    void panelShown();
    void panelHidden();

Q_SIGNALS:
    void closeRequested();
    void quitRequested();
    /// The user confirmed `explainClosing`.
    void closingConfirmed();
    /// An action of the user failed; the panel may be hidden.
    void attentionRequested();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void layOut();
    void connectHeader();
    void connectMenu();
    void connectList();
    void makeFindBar();
    void connectModel();

    void showRows();
    void followHidden();
    void toggleHidden();
    void setShowsHidden(bool showsHidden);
    void showCount();
    void showMenu();
    void showRepositories();
    void hideRepositories();
    void followList();
    void openFind();
    void toggleFind();
    void closeFind();
    bool isFinding() const;
    void act(RowAction action, const PullRequestKit::PullRequest& pullRequest);
    void open(
        const PullRequestKit::PullRequest& pullRequest,
        PullRequestKit::Url page,
        PanelFate fate = PanelFate::goes);
    void openWebSite();
    void updateUse();

    PullRequestMenuModel& _model;
    QWidget* _page;  ///< Disabled while a card is shown.
    PanelHeader* _header;
    QVBoxLayout* _column = nullptr;  ///< Of the page.
    FindBar* _findBar = nullptr;     ///< Created on first use.
    bool _showsHidden = false;       ///< The list includes hidden pull requests, dimmed.
    PullRequestListModel* _rows;
    PullRequestListView* _list;
    ContentArea* _content;
    InfoBarStack* _infoBars;
    PanelFooter* _footer;
    OptionsMenu* _menu;
    EditorFlow* _editorFlow;
    PanelAlerts* _alerts;
    QDeadlineTimer _stays{0};            ///< Until then the panel stays open without the focus.
    QPointer<RepositoryPicker> _picker;  ///< Replaces the page while it is open.
};

}  // namespace Tarnwick
