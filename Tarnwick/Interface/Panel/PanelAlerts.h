#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QObject>

class QWidget;

namespace Tarnwick {

class Alert;
class Appearance;
class EditorFlow;
class EditorOverlay;

/// What stands over the panel at times: the alerts, and the overlay while the editor is opened.
/// Main thread only.
class PanelAlerts final : public QObject {
    Q_OBJECT

public:
    PanelAlerts(
        PullRequestMenuModel& model,
        EditorFlow& editorFlow,
        const Appearance& appearance,
        QWidget* panel);

    /// Whether any of them is up, so that nothing below can be used.
    bool isAnyShown() const;

Q_SIGNALS:
    void shownChanged();

private:
    void makeNotificationsAlert();
    void makeEditorAlert();
    void update();

    PullRequestMenuModel& _model;
    EditorFlow& _editorFlow;
    Alert* _notificationsDisabled;
    Alert* _editorError;
    EditorOverlay* _editorOverlay;
};

}  // namespace Tarnwick
