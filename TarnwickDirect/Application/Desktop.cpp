#include "TarnwickDirect/Application/Desktop.h"

#include "Tarnwick/DesktopCollaborators.h"
#include "Tarnwick/Interface/Panel/PanelDismissal.h"
#include "Tarnwick/Persistence/IniDefaultsStore.h"
#include "TarnwickDirect/Application/ApplicationService.h"
#include "TarnwickDirect/Application/Display.h"
#include "TarnwickDirect/Application/ExitGuard.h"
#include "TarnwickDirect/Application/SingleInstance.h"
#include "TarnwickDirect/Application/TarnwickDirectApp.h"
#include "TarnwickDirect/CommandLine/SignalHandler.h"
#include "TarnwickDirect/Drain.h"
#include "TarnwickDirect/Environment.h"
#include "TarnwickDirect/Status/BusNames.h"
#include "TarnwickDirect/Version.h"
#include "TarnwickDirect/X11/X11.h"

#include <QApplication>
#include <QSessionManager>

#include <memory>
#include <stdexcept>
#include <utility>

#include <fontconfig/fontconfig.h>

namespace TarnwickDirect {
namespace {

void describeApplication()
{
    QApplication::setApplicationDisplayName(QStringLiteral("Tarnwick"));
    QApplication::setApplicationVersion(
        QString::fromUtf8(version().data(), qsizetype(version().size())));
    QGuiApplication::setDesktopFileName(BusNames::service);
    QApplication::setQuitOnLastWindowClosed(false);
}

/// The autostart entry already starts the program, if the user wants it.
void stayOutOfSavedSessions(QSessionManager& session)
{
    session.setRestartHint(QSessionManager::RestartNever);
}

struct Request {
    ShowPanel::Manner manner = ShowPanel::Manner::show;
    PlatformData platformData;
};

int runFirst(
    const Request& request,
    const MakeUpdater& makeUpdater,
    const QDBusConnection& bus,
    ApplicationService& service,
    const SignalHandler& signalHandler,
    const std::shared_ptr<Tarnwick::Preload>& preload)
{
    describeApplication();
    auto collaborators =
        Tarnwick::desktopCollaborators(environment(), bus, Tarnwick::dismissPanel, preload);
    preload->waitForFonts();
    TarnwickDirectApp app(std::move(collaborators), bus, service, makeUpdater);
    const ExitGuard exitGuard([&app] { app.stop(); });
    QObject::connect(
        &app,
        &TarnwickDirectApp::quitRequested,
        qApp,
        &QCoreApplication::quit,
        Qt::QueuedConnection);
    QObject::connect(&signalHandler, &SignalHandler::interrupted, qApp, &QCoreApplication::quit);
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, &app, stayOutOfSavedSessions);
    QObject::connect(qApp, &QGuiApplication::saveStateRequest, &app, stayOutOfSavedSessions);
    app.start(request.manner, request.platformData);
    return QApplication::exec();
}

}  // namespace

int runOnDesktop(const ShowPanel& command, const MakeUpdater& makeUpdater, int argc, char** argv)
{
    if (!hasDisplay()) {
        throw std::runtime_error("No display is available. \"tarnwick list\" prints the pull "
                                 "requests in a terminal.");
    }
    // Qt would otherwise initialize fontconfig on the main thread.
    const auto preload = std::make_shared<Tarnwick::Preload>(
        [] { return std::make_shared<Tarnwick::IniDefaultsStore>(); },
        Tarnwick::PullRequestDiskCache{},
        [] { FcInit(); });
    // The display can be lost before there is a panel and while the last work ends.
    const ExitGuard exitGuard([] {});
    const Request request{
        .manner = command.manner, .platformData = PlatformData::fromEnvironment()};
    const QApplication application(argc, argv);
    const SignalHandler signalHandler;
    QDBusConnection bus = QDBusConnection::sessionBus();
    ApplicationService service;
    if (bus.isConnected()) {
        // Before the name is claimed, so that clients of the name find the object.
        bus.registerVirtualObject(BusNames::path, &service);
    }
    if (startOrForward(bus, request.manner, request.platformData) == Start::forwarded) {
        X11::endStartup(request.platformData.startupId.toUtf8());
        return 0;
    }
    const int status = runFirst(request, makeUpdater, bus, service, signalHandler, preload);
    drain();
    if (signalHandler.signal()) {
        signalHandler.endProcess();
    }
    return status;
}

}  // namespace TarnwickDirect
