#include "TarnwickDirect/SoftwareUpdate/StandardUpdater.h"

#include "GitHubProvider/ProcessCommandRunner.h"
#include "TarnwickDirect/SoftwareUpdate/NetworkModule.h"
#include "TarnwickDirect/SoftwareUpdate/SystemVersion.h"

#include <QCoreApplication>
#include <QFile>
#include <QStandardPaths>
#include <QSysInfo>

namespace TarnwickDirect {
namespace {

constexpr std::chrono::seconds commandTimeout{30};

std::filesystem::path pathFrom(const QString& name)
{
    return QFile::encodeName(name).toStdString();
}

std::filesystem::path downloadFolder()
{
    return pathFrom(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation))
           / "dev.tarnwick.Tarnwick" / "updates";
}

}  // namespace

std::unique_ptr<AppcastUpdater> standardUpdater(
    const UpdateSource& source,
    const QString& ownVersion,
    const GitHub::Environment& environment,
    std::shared_ptr<Tarnwick::DefaultsStore> defaults,
    std::shared_ptr<Tarnwick::Clock> clock,
    UpdaterDelegate& delegate)
{
    const auto executable = pathFrom(QCoreApplication::applicationFilePath());
    const QString module = networkModulePath(QCoreApplication::applicationDirPath());
    AppcastUpdater::Collaborators collaborators{
        .source = source,
        .ownVersion = ownVersion,
        .systemVersion = systemVersionIn(QSysInfo::kernelVersion()),
        .downloadFolder = downloadFolder(),
        .findInstallation =
            [environment, executable](std::stop_token stopToken) {
                const GitHub::ProcessCommandRunner runner(commandTimeout);
                return findInstallation(environment, executable, runner, stopToken);
            },
        .defaults = std::move(defaults),
        .clock = std::move(clock),
        .makeNetwork = [module] { return networkFromModule(module); }};
    return std::make_unique<AppcastUpdater>(std::move(collaborators), delegate);
}

}  // namespace TarnwickDirect
