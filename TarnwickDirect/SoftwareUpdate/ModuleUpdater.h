#pragma once

#include "TarnwickDirect/SoftwareUpdate/DailySchedule.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateModule.h"

#include <QMessageBox>

namespace TarnwickDirect {

/// The updater in a module, which is loaded at the first check: what it stands on, the network
/// above all, takes a dozen libraries. It is due once a day. Where the module cannot be loaded,
/// whoever asks for a check is told so. Downloads go to `dev.tarnwick.Tarnwick/updates` in the
/// user's cache folder, which is removed at the start. Main thread only.
class ModuleUpdater final : public UpdaterController {
public:
    /// Requires: the delegate lives longer.
    ModuleUpdater(QString path, const UpdaterHost& host, UpdaterDelegate& delegate);

    bool canCheckForUpdates() const override;
    void checkForUpdates() override;
    void checkInBackground() override;
    void bringToFront() override;
    void stop() override;

private:
    ModuleHost moduleHost() const;
    QString load();
    void tell(const QString& problem);

    QString _path;
    UpdaterHost _host;
    UpdaterDelegate& _delegate;
    std::unique_ptr<UpdaterController> _updater;  ///< Once the module is loaded.
    std::unique_ptr<QMessageBox> _problem;
    DailySchedule _schedule;
};

/// Makes updaters of the module that belongs to the program, beside the folder of the programs.
MakeUpdater updaterFromModule(const QString& name);

}  // namespace TarnwickDirect
