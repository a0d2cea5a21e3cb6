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

/// What the panel shows: header, content by the model's state, footer, options menu, alerts and the
/// editor's overlay. It decides nothing: every action is an operation of the model or of the
/// desktop. Main thread only.
class PullRequestMenuView final : public QWidget {
    Q_OBJECT

public:
    /// Requires: `model` lives longer than the view.
    explicit PullRequestMenuView(PullRequestMenuModel& model, QWidget* parent = nullptr);

    /// Without an action the options menu has no "Check for Updates…".
    void setUpdateCheck(bool canCheckForUpdates, std::function<void()> checkForUpdates);

    /// Whether a menu, an alert, a dialog or the editor's overlay is up, so that the panel must not
    /// close when it loses the focus.
    bool keepsOpen() const;

    /// Says, in the place of what stands in the panel, that the program keeps running when its
    /// window is closed. Returns false, and shows nothing, when that or another card is up.
    bool explainClosing();

    /// Opens the find bar with this text, if there is a list to find it in.
    void find(const QString& text);

    /// To be called when the panel comes in sight and when it goes: nothing ticks in between.
    void panelShown();
    void panelHidden();

Q_SIGNALS:
    void closeRequested();
    void quitRequested();
    /// The user has read what `explainClosing` says and closes the window.
    void closingConfirmed();
    /// Something that the user asked for has failed and is told, maybe with the panel out of sight.
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
    QWidget* _page;  ///< Everything that is out of use while a card is up.
    PanelHeader* _header;
    QVBoxLayout* _column = nullptr;  ///< Of the page.
    FindBar* _findBar = nullptr;     ///< From when something was first to be found.
    bool _showsHidden = false;       ///< What is hidden stands in the list, dimmed.
    PullRequestListModel* _rows;
    PullRequestListView* _list;
    ContentArea* _content;
    InfoBarStack* _infoBars;
    PanelFooter* _footer;
    OptionsMenu* _menu;
    EditorFlow* _editorFlow;
    PanelAlerts* _alerts;
    QDeadlineTimer _stays{0};  ///< Until then the focus may leave the panel without closing it.
    QPointer<RepositoryPicker> _picker;  ///< In the place of the page while it is up.
};

}  // namespace Tarnwick
