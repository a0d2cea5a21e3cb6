#pragma once

#include "TarnwickDirect/SoftwareUpdate/DailySchedule.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateModule.h"

#include <QMessageBox>

namespace TarnwickDirect {

/// Loads the updater's module at the first check, because it needs a dozen libraries, above all the
/// network. Checks daily. If loading fails, checks by the user report it. Downloads go to
/// `dev.tarnwick.Tarnwick/updates` in the user's cache folder, which is removed at the start. Main
/// thread only.
class ModuleUpdater final : public UpdaterController {
public:
    /// Requires: the delegate outlives it.
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
    std::unique_ptr<UpdaterController> _updater;  ///< Set once the module is loaded.
    std::unique_ptr<QMessageBox> _problem;
    DailySchedule _schedule;
};

/// Creates updaters from the program's module, which is in the library folder of the installation.
MakeUpdater updaterFromModule(const QString& name);

}  // namespace TarnwickDirect
