#pragma once

#include "TarnwickDirect/SoftwareUpdate/AppcastUpdater.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateDialog.h"

namespace TarnwickDirect {

/// An updater with a dialog. Opens packages in the system's installer. Main thread only.
class DesktopUpdater final : public UpdaterController {
public:
    using OpenPackage = std::function<void(const std::filesystem::path&)>;

    /// Requires: the delegate outlives it.
    DesktopUpdater(
        const ModuleHost& host,
        AppcastUpdater::Settings settings,
        UpdaterDelegate& delegate,
        OpenPackage openPackage);

    bool canCheckForUpdates() const override { return _updater.canCheckForUpdates(); }

    void checkForUpdates() override { _updater.checkForUpdates(); }

    void checkInBackground() override { _updater.checkInBackground(); }

    void bringToFront() override;

    void stop() override { _updater.stop(); }

    AppcastUpdater& updater() { return _updater; }

    /// Created on first use.
    UpdateDialog& dialog();

private:
    void show();
    void act(UpdateAction action);

    ModuleHost _host;
    AppcastUpdater _updater;
    std::unique_ptr<UpdateDialog> _dialog;
};

/// For this program and system; owned by the caller. Requires: the delegate outlives it.
DesktopUpdater* makeDesktopUpdater(
    const UpdateSource& source, const ModuleHost& host, UpdaterDelegate& delegate);

}  // namespace TarnwickDirect
