#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QObject>

class QWidget;

namespace Tarnwick {

class Alert;
class EditorFlow;
class EditorOverlay;

/// The cards over the panel: alerts, and the overlay of the editor. Main thread only.
class PanelAlerts final : public QObject {
    Q_OBJECT

public:
    PanelAlerts(PullRequestMenuModel& model, EditorFlow& editorFlow, QWidget* panel);

    /// Explains that the program outlives its window, and asks for confirmation.
    void explainClosing();

    bool explainsClosing() const { return _explainsClosing; }

    /// Whether a card is shown, so that the panel below is disabled.
    bool isAnyShown() const;

Q_SIGNALS:
    void shownChanged();
    /// The editor needs a project directory, which the user now wants to set.
    void projectDirectoryRequested();
    /// The user confirmed `explainClosing`.
    void closingConfirmed();
    void quitRequested();

private:
    void makeNotificationsAlert();
    void showNotificationsAlert();
    void makeEditorAlert();
    void makeClosingAlert();
    void endExplaining();
    void update();

    PullRequestMenuModel& _model;
    QWidget* _panel;
    EditorFlow& _editorFlow;
    Alert* _notificationsDisabled = nullptr;  ///< Its buttons depend on the desktop.
    Alert* _editorError;
    Alert* _closing = nullptr;  ///< Created on first use.
    bool _explainsClosing = false;
    EditorOverlay* _editorOverlay;
};

}  // namespace Tarnwick
