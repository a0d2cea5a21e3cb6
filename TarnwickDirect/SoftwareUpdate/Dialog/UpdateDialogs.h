#pragma once

#include "TarnwickDirect/SoftwareUpdate/AppcastUpdater.h"
#include "TarnwickDirect/SoftwareUpdate/Dialog/UpdateDialog.h"

namespace TarnwickDirect {

/// Leads the user through what an updater does. Main thread only.
class UpdateDialogs final : public QObject {
    Q_OBJECT

public:
    /// Requires: both live longer.
    UpdateDialogs(
        AppcastUpdater& updater, QString ownVersion, const Tarnwick::Appearance& appearance);

    UpdateDialog& dialog() { return _dialog; }

Q_SIGNALS:
    /// The user wants the new version to run.
    void restartRequested();

private:
    void show();
    void act(UpdateAction action);

    AppcastUpdater& _updater;
    QString _ownVersion;
    UpdateDialog _dialog;
};

}  // namespace TarnwickDirect
