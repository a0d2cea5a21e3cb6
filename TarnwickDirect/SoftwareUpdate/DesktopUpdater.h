#pragma once

#include "Tarnwick/Desktop/Launch.h"
#include "TarnwickDirect/Application/UpdaterHost.h"
#include "TarnwickDirect/SoftwareUpdate/Dialog/UpdateDialogs.h"

namespace TarnwickDirect {

/// An updater with its dialogs in the running program: the new version is started in the place of
/// this one, and a package is opened in the system's installer. Main thread only.
class DesktopUpdater final : public UpdaterController {
    Q_OBJECT

public:
    using OpenPackage = std::function<void(const std::filesystem::path&)>;

    /// Requires: all are there.
    DesktopUpdater(
        std::unique_ptr<AppcastUpdater> updater,
        const QString& ownVersion,
        UpdaterHost host,
        OpenPackage openPackage);

    AppcastUpdater& updater() { return *_updater; }

    UpdateDialogs& dialogs() { return _dialogs; }

    bool canCheckForUpdates() const override { return _updater->canCheckForUpdates(); }

    void checkForUpdates() override { _updater->checkForUpdates(); }

    void bringToFront() override { _dialogs.bringToFront(); }

    void stop() override { _updater->stop(); }

private:
    void restart();

    std::unique_ptr<AppcastUpdater> _updater;
    UpdaterHost _host;
    UpdateDialogs _dialogs;
};

/// Makes updaters of this program as it runs on this system, whose updates come from the source.
MakeUpdater desktopUpdaterFrom(const UpdateSource& source);

}  // namespace TarnwickDirect
