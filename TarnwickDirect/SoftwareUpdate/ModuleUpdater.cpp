#include "TarnwickDirect/SoftwareUpdate/ModuleUpdater.h"

#include "TarnwickDirect/Version.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QLibrary>
#include <QStandardPaths>

#include <utility>

namespace TarnwickDirect {
namespace {

// Stored: do not rename.
constexpr std::string_view skippedVersionKey = "updates.skippedVersion";
constexpr std::string_view channelsKey = "updates.channels";

std::set<QString> channelsIn(const Tarnwick::DefaultsStore& defaults)
{
    std::set<QString> channels;
    const auto names = Tarnwick::readTextList(defaults, channelsKey);
    for (const std::string& name : names.value_or(std::vector<std::string>{})) {
        channels.insert(QString::fromStdString(name));
    }
    return channels;
}

std::filesystem::path downloadFolder()
{
    const QString cache = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    return std::filesystem::path(QFile::encodeName(cache).toStdString()) / "dev.tarnwick.Tarnwick"
           / "updates";
}

}  // namespace

ModuleUpdater::ModuleUpdater(QString path, const UpdaterHost& host, UpdaterDelegate& delegate)
    : _path(std::move(path))
    , _host(host)
    , _delegate(delegate)
    , _schedule(host.defaults, host.clock, [this] { checkInBackground(); })
{
    // Removes leftovers of killed processes and packages already handed over.
    std::error_code ignored;
    std::filesystem::remove_all(downloadFolder(), ignored);
}

bool ModuleUpdater::canCheckForUpdates() const
{
    return !_updater || _updater->canCheckForUpdates();
}

void ModuleUpdater::checkForUpdates()
{
    if (!canCheckForUpdates()) {
        return;
    }
    _schedule.noteCheck();
    if (const QString problem = load(); !problem.isEmpty()) {
        tell(problem);
    } else {
        _updater->checkForUpdates();
    }
}

void ModuleUpdater::checkInBackground()
{
    if (const QString problem = load(); !problem.isEmpty()) {
        _delegate.updaterDidNotFindUpdate(problem);
    } else {
        _updater->checkInBackground();
    }
}

void ModuleUpdater::bringToFront()
{
    if (_updater) {
        _updater->bringToFront();
    }
}

void ModuleUpdater::stop()
{
    if (_updater) {
        _updater->stop();
    }
}

ModuleHost ModuleUpdater::moduleHost() const
{
    const auto defaults = _host.defaults;
    return {
        .version = QString::fromUtf8(version().data(), qsizetype(version().size())),
        .downloadFolder = downloadFolder(),
        .channels = [defaults] { return channelsIn(*defaults); },
        .skippedVersion =
            [defaults] {
                const auto skipped = Tarnwick::readText(*defaults, skippedVersionKey);
                return QString::fromStdString(skipped.value_or(""));
            },
        .skip =
            [defaults](const QString& skipped) {
                Tarnwick::writeText(*defaults, skippedVersionKey, skipped.toStdString());
            },
        .bringToFront = _host.bringToFront,
        .takeFocusBack = _host.takeFocusBack};
}

/// Loads the module unless already loaded. Returns an error, or an empty text. The module has
/// another version if the program was updated while running.
QString ModuleUpdater::load()
{
    if (_updater) {
        return {};
    }
    QLibrary module(_path);
    module.setLoadHints(QLibrary::ResolveAllSymbolsHint);
    const auto versionOf =
        reinterpret_cast<VersionOfModule>(module.resolve("tarnwickUpdaterVersion"));
    const auto make = reinterpret_cast<MakeUpdaterOfModule>(module.resolve("tarnwickUpdater"));
    if (versionOf != nullptr && versionOf() != version()) {
        return QStringLiteral("Restart Tarnwick before checking for updates; another version was "
                              "installed meanwhile.");
    }
    if (versionOf != nullptr && make != nullptr) {
        _updater.reset(make(moduleHost(), _delegate));
    }
    if (!_updater) {
        return QStringLiteral("Tarnwick cannot check for updates because \"%1\" cannot be loaded.")
            .arg(_path);
    }
    connect(
        _updater.get(),
        &UpdaterController::canCheckForUpdatesChanged,
        this,
        &UpdaterController::canCheckForUpdatesChanged);
    return {};
}

void ModuleUpdater::tell(const QString& problem)
{
    _delegate.updaterDidNotFindUpdate(problem);
    _problem = std::make_unique<QMessageBox>();
    _problem->setWindowTitle(QStringLiteral("Software Update"));
    _problem->setText(problem);
    connect(_problem.get(), &QDialog::finished, this, _host.takeFocusBack);
    _host.bringToFront(*_problem);
}

MakeUpdater updaterFromModule(const QString& name)
{
    return [name](const UpdaterHost& host, UpdaterDelegate& delegate) {
        const QString path = QDir::cleanPath(
            QCoreApplication::applicationDirPath() + QStringLiteral("/../lib/tarnwick/modules/")
            + name);
        return std::make_unique<ModuleUpdater>(path, host, delegate);
    };
}

}  // namespace TarnwickDirect
