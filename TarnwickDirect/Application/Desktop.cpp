#include "TarnwickDirect/Application/Desktop.h"

#include "Tarnwick/DesktopCollaborators.h"
#include "Tarnwick/Interface/Look/AppResources.h"
#include "Tarnwick/Interface/Panel/PanelDismissal.h"
#include "TarnwickDirect/Application/ApplicationService.h"
#include "TarnwickDirect/Application/Display.h"
#include "TarnwickDirect/Application/ExitGuard.h"
#include "TarnwickDirect/Application/SingleInstance.h"
#include "TarnwickDirect/Application/TarnwickDirectApp.h"
#include "TarnwickDirect/CommandLine/Interruption.h"
#include "TarnwickDirect/Environment.h"
#include "TarnwickDirect/Settling.h"
#include "TarnwickDirect/Version.h"
#include "TarnwickDirect/X11/X11.h"

#include <QApplication>
#include <QIcon>
#include <QSessionManager>

#include <stdexcept>

namespace TarnwickDirect {
namespace {

void describeApplication()
{
    QApplication::setApplicationDisplayName(QStringLiteral("Tarnwick"));
    QApplication::setApplicationVersion(
        QString::fromUtf8(version().data(), qsizetype(version().size())));
    QGuiApplication::setDesktopFileName(QString::fromLatin1(ApplicationService::name));
    QApplication::setQuitOnLastWindowClosed(false);
    Tarnwick::AppResources::bundle();
    QApplication::setWindowIcon(QIcon(Tarnwick::AppResources::path(
        QStringLiteral("tarnwick-zap-inner-light-icon"), QStringLiteral("svg"))));
}

/// The session starts the program again by its autostart entry, if the user wants it at all.
void stayOutOfSavedSessions(QSessionManager& session)
{
    session.setRestartHint(QSessionManager::RestartNever);
}

int runFirst(
    const ShowPanel& command,
    const PlatformData& platformData,
    const QDBusConnection& bus,
    ApplicationService& service,
    const Interruption& interruption)
{
    describeApplication();
    TarnwickDirectApp app(
        Tarnwick::desktopCollaborators(environment(), bus, Tarnwick::dismissPanel), bus, service);
    const ExitGuard exitGuard([&app] { app.stop(); });
    QObject::connect(
        &app,
        &TarnwickDirectApp::quitRequested,
        qApp,
        &QCoreApplication::quit,
        Qt::QueuedConnection);
    QObject::connect(&interruption, &Interruption::interrupted, qApp, &QCoreApplication::quit);
    QObject::connect(qApp, &QGuiApplication::commitDataRequest, &app, stayOutOfSavedSessions);
    QObject::connect(qApp, &QGuiApplication::saveStateRequest, &app, stayOutOfSavedSessions);
    app.start(command.manner, platformData);
    return QApplication::exec();
}

}  // namespace

int runOnDesktop(const ShowPanel& command, int argc, char** argv)
{
    if (!hasDisplay()) {
        throw std::runtime_error("There is no display to show the panel on; \"tarnwick list\" "
                                 "prints the pull requests.");
    }
    const PlatformData platformData = PlatformData::fromEnvironment();
    const QApplication application(argc, argv);
    const Interruption interruption;
    QDBusConnection bus = QDBusConnection::sessionBus();
    ApplicationService service;
    if (bus.isConnected()) {
        // Before the name, so that whoever finds the name finds the object.
        bus.registerVirtualObject(QString::fromLatin1(ApplicationService::path), &service);
    }
    if (startOrForward(bus, command.manner, platformData) == Start::forwarded) {
        X11::endStartup(platformData.startupId.toUtf8());
        return 0;
    }
    const int status = runFirst(command, platformData, bus, service, interruption);
    settle();
    if (interruption.signal()) {
        interruption.endProcess();
    }
    return status;
}

}  // namespace TarnwickDirect
