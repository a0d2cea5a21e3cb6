#pragma once

#include "TarnwickDirect/SoftwareUpdate/AppcastUpdater.h"
#include "TarnwickDirect/SoftwareUpdate/Dialog/UpdateDialog.h"

namespace TarnwickDirect {

/// Leads the user through what an updater does. Main thread only.
class UpdateDialogs final : public QObject {
    Q_OBJECT

public:
    /// Requires: both live longer, and `bringToFront` can be called.
    UpdateDialogs(
        AppcastUpdater& updater, QString ownVersion, std::function<void(QWidget&)> bringToFront);

    /// Made when it is first needed.
    UpdateDialog& dialog();

    /// Brings the dialog to the front while it shows something.
    void bringToFront();

Q_SIGNALS:
    /// The dialog had the focus and is gone.
    void closed();

    /// The user wants the new version to run.
    void restartRequested();

private:
    void show();
    void act(UpdateAction action);

    AppcastUpdater& _updater;
    QString _ownVersion;
    std::function<void(QWidget&)> _bringToFront;
    std::unique_ptr<UpdateDialog> _dialog;
};

}  // namespace TarnwickDirect
