#include "Tarnwick/Interface/Panel/PanelAlerts.h"

#include "Tarnwick/Interface/Panel/Alert.h"
#include "Tarnwick/Interface/Panel/EditorFlow.h"
#include "Tarnwick/Interface/Panel/EditorOverlay.h"
#include "Tarnwick/Model/OpenInEditor.h"

#include <QClipboard>
#include <QGuiApplication>

namespace Tarnwick {

PanelAlerts::PanelAlerts(PullRequestMenuModel& model, EditorFlow& editorFlow, QWidget* panel)
    : QObject(panel)
    , _model(model)
    , _panel(panel)
    , _editorFlow(editorFlow)
    , _editorError(new Alert(
          EditorFlow::errorTitle(),
          {.primary = QStringLiteral("OK"),
           .cancel = {},
           .copyHelp = QStringLiteral("Copy error title and message"),
           .other = QStringLiteral("Set Project Directory…")},
          panel))
    , _editorOverlay(new EditorOverlay(panel))
{
    connect(
        &model,
        &PullRequestMenuModel::notificationSettingsRequiredChanged,
        this,
        &PanelAlerts::update);
    makeEditorAlert();
    connect(&editorFlow, &EditorFlow::editorProgressChanged, this, &PanelAlerts::update);
    update();
}

/// If the desktop has no settings to open, the notification service must be missing.
void PanelAlerts::makeNotificationsAlert()
{
    const bool hasSettings = _model.navigation().hasNotificationSettings();
    delete _notificationsDisabled;
    _notificationsDisabled = new Alert(
        QStringLiteral("Notifications Are Disabled"),
        {.primary = hasSettings ? QStringLiteral("Open System Settings") : QStringLiteral("OK"),
         .cancel = hasSettings ? QStringLiteral("Cancel") : QString(),
         .copyHelp = {}},
        _panel);
    _notificationsDisabled->setObjectName(QStringLiteral("notificationsDisabled"));
    _notificationsDisabled->setMessage(
        hasSettings ? QStringLiteral("Enable notifications for Tarnwick, then turn the "
                                     "notification you want on again.")
                    : QStringLiteral("No program on this desktop shows notifications. Install or "
                                     "start a notification service, then turn the notification "
                                     "you want on again."));
    connect(_notificationsDisabled, &Alert::primaryTriggered, this, [this, hasSettings] {
        _model.dismissNotificationSettingsRequired();
        if (hasSettings) {
            _model.navigation().openNotificationSettings();
        }
    });
    connect(
        _notificationsDisabled,
        &Alert::cancelled,
        &_model,
        &PullRequestMenuModel::dismissNotificationSettingsRequired);
}

void PanelAlerts::makeEditorAlert()
{
    _editorError->setObjectName(QStringLiteral("editorError"));
    connect(_editorError, &Alert::primaryTriggered, &_editorFlow, &EditorFlow::dismissError);
    connect(_editorError, &Alert::cancelled, &_editorFlow, &EditorFlow::dismissError);
    connect(_editorError, &Alert::otherTriggered, this, [this] {
        _editorFlow.dismissError();
        Q_EMIT projectDirectoryRequested();
    });
    connect(_editorError, &Alert::copyTriggered, this, [this] {
        QGuiApplication::clipboard()->setText(_editorFlow.errorReport());
    });
    connect(&_editorFlow, &EditorFlow::externalActionErrorChanged, this, &PanelAlerts::update);
}

void PanelAlerts::makeClosingAlert()
{
    _closing = new Alert(
        QStringLiteral("Tarnwick Keeps Running"),
        {.primary = QStringLiteral("Close Window"),
         .cancel = {},
         .copyHelp = {},
         .other = QStringLiteral("Quit")},
        _panel);
    _closing->setObjectName(QStringLiteral("closing"));
    _closing->setMessage(QStringLiteral(
        "Notifications are on, so Tarnwick keeps checking your pull requests after its window is "
        "closed. Start Tarnwick again to open the window. Ctrl+Q quits."));
    connect(_closing, &Alert::cancelled, this, &PanelAlerts::endExplaining);
    connect(_closing, &Alert::primaryTriggered, this, [this] {
        endExplaining();
        Q_EMIT closingConfirmed();
    });
    connect(_closing, &Alert::otherTriggered, this, [this] {
        endExplaining();
        Q_EMIT quitRequested();
    });
}

void PanelAlerts::explainClosing()
{
    if (_closing == nullptr) {
        makeClosingAlert();
    }
    _explainsClosing = true;
    update();
}

void PanelAlerts::endExplaining()
{
    _explainsClosing = false;
    update();
}

void PanelAlerts::showNotificationsAlert()
{
    const bool isShown = _model.notificationSettingsRequired();
    if (isShown && (_notificationsDisabled == nullptr || _notificationsDisabled->isHidden())) {
        makeNotificationsAlert();
    }
    if (_notificationsDisabled != nullptr) {
        _notificationsDisabled->setVisible(isShown);
    }
}

bool PanelAlerts::isAnyShown() const
{
    return _model.notificationSettingsRequired() || _editorFlow.externalActionError()
           || _editorFlow.editorProgress() || _explainsClosing;
}

void PanelAlerts::update()
{
    // The panel is disabled before a card takes the focus, and enabled after it is gone.
    if (isAnyShown()) {
        Q_EMIT shownChanged();
    }
    const auto& progress = _editorFlow.editorProgress();
    const auto& error = _editorFlow.externalActionError();
    if (progress) {
        _editorOverlay->setProgress(*progress);
    }
    if (error) {
        _editorError->setOffersOther(asksForProjectDirectory(error->toStdString()));
        _editorError->setMessage(*error);
    }
    _editorOverlay->setVisible(progress.has_value());
    _editorError->setVisible(error.has_value());
    showNotificationsAlert();
    if (_closing != nullptr) {
        _closing->setVisible(_explainsClosing);
    }
    if (!isAnyShown()) {
        Q_EMIT shownChanged();
    }
}

}  // namespace Tarnwick
