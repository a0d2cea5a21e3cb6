#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QObject>

class QWidget;

namespace Tarnwick {

class Alert;
class EditorFlow;
class EditorOverlay;

/// What stands over the panel at times: the alerts, and the overlay while the editor is opened.
/// Main thread only.
class PanelAlerts final : public QObject {
    Q_OBJECT

public:
    PanelAlerts(PullRequestMenuModel& model, EditorFlow& editorFlow, QWidget* panel);

    /// Says that the program keeps running when its window is closed, and asks whether it shall.
    void explainClosing();

    bool explainsClosing() const { return _explainsClosing; }

    /// Whether any of them is up, so that nothing below can be used.
    bool isAnyShown() const;

Q_SIGNALS:
    void shownChanged();
    /// The editor could not be opened for want of a project directory that the user now sets.
    void projectDirectoryRequested();
    /// The user's answers to `explainClosing`.
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
    Alert* _notificationsDisabled = nullptr;  ///< By what the desktop has when it is shown.
    Alert* _editorError;
    Alert* _closing = nullptr;  ///< From when it was first needed, which is rarely.
    bool _explainsClosing = false;
    EditorOverlay* _editorOverlay;
};

}  // namespace Tarnwick
