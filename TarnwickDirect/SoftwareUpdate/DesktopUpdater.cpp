#include "TarnwickDirect/SoftwareUpdate/DesktopUpdater.h"

#include "TarnwickDirect/Environment.h"
#include "TarnwickDirect/SoftwareUpdate/PackageInstaller.h"
#include "TarnwickDirect/SoftwareUpdate/StandardUpdater.h"
#include "TarnwickDirect/Version.h"

#include <utility>

namespace TarnwickDirect {
namespace {

DesktopUpdater::OpenPackage packageOpener(const GitHub::Environment& environment)
{
    return [environment](const std::filesystem::path& package) {
        if (const auto installer =
                packageInstaller(environment, GitHub::isExecutableFile, package)) {
            launchDetached(*installer, environment);
        }
    };
}

}  // namespace

DesktopUpdater::DesktopUpdater(
    std::unique_ptr<AppcastUpdater> updater,
    const QString& ownVersion,
    UpdaterHost host,
    OpenPackage openPackage)
    : _updater(std::move(updater))
    , _host(std::move(host))
    , _dialogs(*_updater, ownVersion, _host.bringToFront)
{
    connect(
        _updater.get(),
        &AppcastUpdater::canCheckForUpdatesChanged,
        this,
        &UpdaterController::canCheckForUpdatesChanged);
    connect(_updater.get(), &AppcastUpdater::packageReady, this, std::move(openPackage));
    connect(&_dialogs, &UpdateDialogs::closed, this, _host.takeFocusBack);
    connect(&_dialogs, &UpdateDialogs::restartRequested, this, &DesktopUpdater::restart);
}

void DesktopUpdater::restart()
{
    _host.restart(_updater->installation().program);
}

MakeUpdater desktopUpdaterFrom(const UpdateSource& source)
{
    return [source](const UpdaterHost& host, UpdaterDelegate& delegate) {
        const auto variables = environment();
        const auto ownVersion = QString::fromUtf8(version().data(), qsizetype(version().size()));
        return std::make_unique<DesktopUpdater>(
            standardUpdater(source, ownVersion, variables, host.defaults, host.clock, delegate),
            ownVersion,
            host,
            packageOpener(variables));
    };
}

}  // namespace TarnwickDirect
