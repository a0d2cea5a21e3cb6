#include "TarnwickDirect/SoftwareUpdate/DesktopUpdater.h"

#include "TarnwickDirect/SoftwareUpdate/VersionComparison.h"

#include <QCoreApplication>
#include <QFile>
#include <QNetworkProxyFactory>
#include <QProcess>
#include <QSysInfo>

#include <utility>

namespace TarnwickDirect {
namespace {

/// Opens the package with the desktop's default program, if there is one.
void openPackage(const std::filesystem::path& package)
{
    QProcess opener;
    opener.setProgram(QStringLiteral("xdg-open"));
    opener.setArguments({QFile::decodeName(package.c_str())});
    opener.setStandardInputFile(QProcess::nullDevice());
    opener.setStandardOutputFile(QProcess::nullDevice());
    opener.setStandardErrorFile(QProcess::nullDevice());
    opener.startDetached();
}

}  // namespace

DesktopUpdater::DesktopUpdater(
    const ModuleHost& host,
    AppcastUpdater::Settings settings,
    UpdaterDelegate& delegate,
    OpenPackage openPackage)
    : _host(host)
    , _updater(host, std::move(settings), delegate)
{
    connect(
        &_updater,
        &AppcastUpdater::canCheckForUpdatesChanged,
        this,
        &UpdaterController::canCheckForUpdatesChanged);
    connect(&_updater, &AppcastUpdater::packageReady, this, std::move(openPackage));
    connect(&_updater, &AppcastUpdater::stateChanged, this, [this] { show(); });
}

UpdateDialog& DesktopUpdater::dialog()
{
    if (!_dialog) {
        _dialog = std::make_unique<UpdateDialog>(_host.bringToFront);
        connect(_dialog.get(), &UpdateDialog::triggered, this, [this](UpdateAction action) {
            act(action);
        });
    }
    return *_dialog;
}

void DesktopUpdater::bringToFront()
{
    if (_updater.state().kind != UpdateState::Kind::idle) {
        _host.bringToFront(dialog());
    }
}

void DesktopUpdater::show()
{
    const auto page = updatePage(_updater.state(), _updater.installation(), _host.version);
    const bool hadFocus = dialog().isActiveWindow();
    dialog().setPage(page);
    if (!page && hadFocus) {
        _host.takeFocusBack();
    }
}

void DesktopUpdater::act(UpdateAction action)
{
    switch (action) {
    case UpdateAction::cancel:
        _updater.cancel();
        break;
    case UpdateAction::skip:
        _updater.skip();
        break;
    case UpdateAction::install:
        _updater.install();
        break;
    case UpdateAction::okay:
    case UpdateAction::remindLater:
        _updater.dismiss();
        break;
    }
}

DesktopUpdater* makeDesktopUpdater(
    const UpdateSource& source, const ModuleHost& host, UpdaterDelegate& delegate)
{
    QNetworkProxyFactory::setUseSystemConfiguration(true);
    AppcastUpdater::Settings settings{
        .source = source,
        .systemVersion = systemVersionIn(QSysInfo::kernelVersion()),
        .findInstallation =
            [executable = QCoreApplication::applicationFilePath()](std::stop_token stopToken) {
                return findInstallation(
                    executable, [&](const QString& program, const QStringList& arguments) {
                        return outputOf(program, arguments, stopToken);
                    });
            }};
    return new DesktopUpdater(host, std::move(settings), delegate, openPackage);
}

}  // namespace TarnwickDirect
