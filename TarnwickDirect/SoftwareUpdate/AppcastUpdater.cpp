#include "TarnwickDirect/SoftwareUpdate/AppcastUpdater.h"

#include "Tarnwick/Async/Worker.h"
#include "TarnwickDirect/SoftwareUpdate/VersionComparison.h"

#include <QNetworkAccessManager>

#include <cassert>
#include <utility>

namespace TarnwickDirect {
namespace {

using Kind = UpdateState::Kind;

constexpr std::chrono::seconds feedTimeLimit{60};

const QString errorTitle = QStringLiteral("Update Error");

/// Deletes an object that may be the caller.
template<typename Object>
void discard(std::unique_ptr<Object>& object)
{
    if (object) {
        object->disconnect();
        object.release()->deleteLater();
    }
}

/// The result of a feed: an update, none, or an error message.
using Finding = std::variant<UpdateOffer, NoUpdate, QString>;

Finding findingOf(const QByteArray& feed, const UpdateNeeds& needs)
{
    try {
        return std::visit(
            [](auto&& choice) -> Finding { return std::forward<decltype(choice)>(choice); },
            chooseUpdate(readAppcast(feed), needs));
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    }
}

}  // namespace

AppcastUpdater::AppcastUpdater(ModuleHost host, Settings settings, UpdaterDelegate& delegate)
    : _host(std::move(host))
    , _settings(std::move(settings))
    , _delegate(delegate)
{}

AppcastUpdater::~AppcastUpdater() = default;

bool AppcastUpdater::canCheckForUpdates() const
{
    return _state.kind != Kind::checking && _state.kind != Kind::downloading
           && _state.kind != Kind::verifying;
}

void AppcastUpdater::checkForUpdates()
{
    if (canCheckForUpdates()) {
        begin(Occasion::user);
    }
}

void AppcastUpdater::checkInBackground()
{
    if (_state.kind == Kind::idle && !_occasion) {
        begin(Occasion::background);
    }
}

void AppcastUpdater::begin(Occasion occasion)
{
    stopCheck();
    _occasion = occasion;
    if (occasion == Occasion::user) {
        setState({.kind = Kind::checking});
    }
    _check.start(
        [this, occasion](std::stop_token stopToken) { return check(occasion, stopToken); });
}

QCoro::Task<> AppcastUpdater::check(Occasion occasion, std::stop_token stopToken)
{
    const auto find = [find = _settings.findInstallation, stopToken] { return find(stopToken); };
    auto finding = Tarnwick::onWorker(find);
    const Installation installation = co_await finding;
    if (stopToken.stop_requested()) {
        co_return;
    }
    _installation = installation;
    noteInstalledPackage();
    if (occasion == Occasion::background && !_installation.takesPackages()) {
        stopCheck();
    } else {
        fetchFeed();
    }
}

/// The package may have been updated since this process started. Later checks compare with the
/// version that a restart would run.
void AppcastUpdater::noteInstalledPackage()
{
    if (compareVersions(_installation.packageVersion, _host.version) > 0) {
        _installedVersion = _installation.packageVersion;
    }
}

void AppcastUpdater::fetchFeed()
{
    const FetchRequest request{
        .url = _settings.source.feed,
        .subject = QStringLiteral("The update feed"),
        .byteLimit = std::uint64_t(appcastSizeLimit),
        .silenceLimit = feedTimeLimit,
        .timeLimit = feedTimeLimit,
        .authorities = _settings.source.authorities};
    _fetch = std::make_unique<HttpsFetch>(network(), request);
    connect(_fetch.get(), &HttpsFetch::received, this, [this](const QByteArray& bytes) {
        _feed += bytes;
    });
    connect(_fetch.get(), &HttpsFetch::failed, this, [this](const QString& message) {
        endCheck(errorTitle, message);
    });
    connect(_fetch.get(), &HttpsFetch::finished, this, [this] {
        _check.start([this](std::stop_token stopToken) { return choose(stopToken); });
    });
}

QCoro::Task<> AppcastUpdater::choose(std::stop_token stopToken)
{
    const auto work = [feed = _feed, needed = needs()] { return findingOf(feed, needed); };
    auto choosing = Tarnwick::onWorker(work);
    const Finding finding = co_await choosing;
    if (stopToken.stop_requested()) {
        co_return;
    }
    if (const auto* const offer = std::get_if<UpdateOffer>(&finding)) {
        found(*offer);
    } else if (const auto* const reason = std::get_if<NoUpdate>(&finding)) {
        foundNone(*reason);
    } else {
        endCheck(errorTitle, std::get<QString>(finding));
    }
}

/// A check by the user reports skipped versions, too.
UpdateNeeds AppcastUpdater::needs() const
{
    return {
        .ownVersion = _installedVersion.isEmpty() ? _host.version : _installedVersion,
        .systemVersion = _settings.systemVersion,
        .channels = _host.channels(),
        .skippedVersion = _occasion == Occasion::background ? _host.skippedVersion() : QString{}};
}

void AppcastUpdater::found(const UpdateOffer& offer)
{
    UpdateState state;
    state.kind = Kind::available;
    state.offer = offer;
    state.wasAskedFor = _occasion == Occasion::user;
    stopCheck();
    _delegate.updaterDidFindValidUpdate(offer.version);
    setState(state);
}

void AppcastUpdater::foundNone(const NoUpdate& reason)
{
    if (!_installedVersion.isEmpty()) {
        endCheck(
            QStringLiteral("Update Installed"),
            QStringLiteral("Restart Tarnwick to use version %1.").arg(_installedVersion));
    } else {
        endCheck(
            reason.isUpToDate ? QStringLiteral("You're up to date!")
                              : QStringLiteral("No Update Available"),
            reason.message);
    }
}

void AppcastUpdater::endCheck(const QString& title, const QString& message)
{
    const bool wasAskedFor = _occasion == Occasion::user;
    stopCheck();
    _delegate.updaterDidNotFindUpdate(message);
    if (wasAskedFor) {
        setState({.kind = Kind::told, .title = title, .message = message});
    }
}

void AppcastUpdater::stopCheck()
{
    _occasion.reset();
    _check.cancel();
    discard(_fetch);
    _feed.clear();
    endNetwork();
}

QNetworkAccessManager& AppcastUpdater::network()
{
    if (!_network) {
        _network = std::make_unique<QNetworkAccessManager>();
    }
    return *_network;
}

/// Ends the network's threads and connections. Deferred, because a reply may be the caller.
void AppcastUpdater::endNetwork()
{
    if (_network && !_fetch && !_download) {
        _network.release()->deleteLater();
    }
}

void AppcastUpdater::cancel()
{
    if (_state.kind == Kind::checking) {
        stopCheck();
        _delegate.updaterDidNotFindUpdate(QStringLiteral("The check was cancelled."));
        setState({});
    } else if (_state.kind == Kind::downloading || _state.kind == Kind::verifying) {
        _download.reset();
        endNetwork();
        setState({});
    }
}

void AppcastUpdater::stop()
{
    if (_download) {
        _download->discardFile();
    }
}

void AppcastUpdater::dismiss()
{
    if (canCheckForUpdates()) {
        setState({});
    }
}

void AppcastUpdater::skip()
{
    assert(_state.kind == Kind::available && !_state.offer.isCritical);
    _host.skip(_state.offer.version);
    setState({});
}

void AppcastUpdater::install()
{
    assert(_state.kind == Kind::available && _installation.takesPackages());
    stopCheck();
    _download = std::make_unique<UpdateDownload>(
        network(),
        _state.offer,
        UpdateDownload::Settings{
            .folder = _host.downloadFolder,
            .trust =
                {.key = _settings.source.key, .package = _installation.package.section(u':', 0, 0)},
            .authorities = _settings.source.authorities});
    connect(_download.get(), &UpdateDownload::progressed, this, [this](quint64 receivedBytes) {
        UpdateState state = _state;
        state.receivedBytes = receivedBytes;
        setState(state);
    });
    connect(
        _download.get(), &UpdateDownload::verifying, this, [this] { setKind(Kind::verifying); });
    connect(_download.get(), &UpdateDownload::finished, this, &AppcastUpdater::downloaded);
    connect(_download.get(), &UpdateDownload::failed, this, &AppcastUpdater::failDownload);
    setKind(Kind::downloading);
}

void AppcastUpdater::downloaded(const std::filesystem::path& file)
{
    _download->keepFile();
    discard(_download);
    endNetwork();
    UpdateState state = _state;
    state.kind = Kind::handedOver;
    state.package = file;
    setState(state);
    Q_EMIT packageReady(file);
}

void AppcastUpdater::failDownload(const QString& message)
{
    discard(_download);
    endNetwork();
    setState({.kind = Kind::told, .title = errorTitle, .message = message});
}

void AppcastUpdater::setState(UpdateState state)
{
    const bool couldCheck = canCheckForUpdates();
    if (std::exchange(_state, std::move(state)) == _state) {
        return;
    }
    const bool canCheck = canCheckForUpdates();
    if (canCheck != couldCheck) {
        Q_EMIT canCheckForUpdatesChanged(canCheck);
    }
    Q_EMIT stateChanged();
}

void AppcastUpdater::setKind(Kind kind)
{
    UpdateState state = _state;
    state.kind = kind;
    setState(state);
}

}  // namespace TarnwickDirect
