#include "Tarnwick/Interface/Panel/PanelAlerts.h"

#include "Tarnwick/Interface/Panel/Alert.h"
#include "Tarnwick/Interface/Panel/EditorFlow.h"
#include "Tarnwick/Interface/Panel/EditorOverlay.h"

#include <QClipboard>
#include <QGuiApplication>

namespace Tarnwick {

PanelAlerts::PanelAlerts(
    PullRequestMenuModel& model,
    EditorFlow& editorFlow,
    const Appearance& appearance,
    QWidget* panel)
    : QObject(panel)
    , _model(model)
    , _editorFlow(editorFlow)
    , _notificationsDisabled(new Alert(
          QStringLiteral("Notifications Are Disabled"),
          {.primary = QStringLiteral("Open System Settings"),
           .cancel = QStringLiteral("Cancel"),
           .copyHelp = {}},
          appearance,
          panel))
    , _editorError(new Alert(
          EditorFlow::errorTitle(),
          {.primary = QStringLiteral("OK"),
           .cancel = {},
           .copyHelp = QStringLiteral("Copy error title and message")},
          appearance,
          panel))
    , _editorOverlay(new EditorOverlay(appearance, panel))
{
    makeNotificationsAlert();
    makeEditorAlert();
    connect(&editorFlow, &EditorFlow::editorProgressChanged, this, &PanelAlerts::update);
    update();
}

void PanelAlerts::makeNotificationsAlert()
{
    _notificationsDisabled->setObjectName(QStringLiteral("notificationsDisabled"));
    _notificationsDisabled->setMessage(
        QStringLiteral("Enable notifications for Tarnwick, then turn the notification you want on "
                       "again."));
    connect(_notificationsDisabled, &Alert::primaryTriggered, this, [this] {
        _model.dismissNotificationSettingsRequired();
        _model.navigation().openNotificationSettings();
    });
    connect(
        _notificationsDisabled,
        &Alert::cancelled,
        &_model,
        &PullRequestMenuModel::dismissNotificationSettingsRequired);
    connect(
        &_model,
        &PullRequestMenuModel::notificationSettingsRequiredChanged,
        this,
        &PanelAlerts::update);
}

void PanelAlerts::makeEditorAlert()
{
    _editorError->setObjectName(QStringLiteral("editorError"));
    connect(_editorError, &Alert::primaryTriggered, &_editorFlow, &EditorFlow::dismissError);
    connect(_editorError, &Alert::cancelled, &_editorFlow, &EditorFlow::dismissError);
    connect(_editorError, &Alert::copyTriggered, this, [this] {
        QGuiApplication::clipboard()->setText(_editorFlow.errorReport());
    });
    connect(&_editorFlow, &EditorFlow::externalActionErrorChanged, this, &PanelAlerts::update);
}

bool PanelAlerts::isAnyShown() const
{
    return _model.notificationSettingsRequired() || _editorFlow.externalActionError()
           || _editorFlow.editorProgress();
}

void PanelAlerts::update()
{
    // What is below is put out of use before a card takes the focus, and back after it has gone.
    if (isAnyShown()) {
        Q_EMIT shownChanged();
    }
    const auto& progress = _editorFlow.editorProgress();
    const auto& error = _editorFlow.externalActionError();
    if (progress) {
        _editorOverlay->setProgress(*progress);
    }
    if (error) {
        _editorError->setMessage(*error);
    }
    _editorOverlay->setVisible(progress.has_value());
    _editorError->setVisible(error.has_value());
    _notificationsDisabled->setVisible(_model.notificationSettingsRequired());
    if (!isAnyShown()) {
        Q_EMIT shownChanged();
    }
}

}  // namespace Tarnwick
