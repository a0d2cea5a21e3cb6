#include "TarnwickDirect/SoftwareUpdate/AppcastUpdater.h"

#include "PullRequestKit/Errors.h"
#include "Tarnwick/Async/Worker.h"
#include "TarnwickDirect/SoftwareUpdate/AppImageReplacement.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"
#include "TarnwickDirect/SoftwareUpdate/UpdaterDelegate.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateWording.h"
#include "TarnwickDirect/SoftwareUpdate/VersionComparison.h"

#include <cassert>
#include <utility>

namespace TarnwickDirect {
namespace {

using Kind = UpdateState::Kind;

/// Lets go of an object that may be the one that is calling.
template<typename Object>
void discard(std::unique_ptr<Object>& object)
{
    if (object) {
        object->disconnect();
        object.release()->deleteLater();
    }
}

/// The message of what went wrong, or an empty text.
QString replacementProblem(
    const std::filesystem::path& oldFile, const std::filesystem::path& newFile)
{
    try {
        replaceAppImage(oldFile, newFile);
        return {};
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    }
}

/// What is found while the search is being stopped means nothing.
Installation installationFound(
    const std::function<Installation(std::stop_token)>& find, const std::stop_token& stopToken)
{
    try {
        return find(stopToken);
    } catch (const PullRequestKit::CancellationError&) {
        return {};
    }
}

UpdateState withMessage(Kind kind, const QString& message)
{
    UpdateState state;
    state.kind = kind;
    state.message = message;
    return state;
}

}  // namespace

AppcastUpdater::AppcastUpdater(Collaborators collaborators, UpdaterDelegate& delegate)
    : _collaborators(std::move(collaborators))
    , _delegate(delegate)
    , _settings(_collaborators.defaults)
    , _schedule(_settings, _collaborators.clock, [this] { checkInBackground(); })
{
    // What a program that was killed has left.
    std::error_code ignored;
    std::filesystem::remove_all(_collaborators.downloadFolder, ignored);
}

AppcastUpdater::~AppcastUpdater() = default;

bool AppcastUpdater::canCheckForUpdates() const
{
    switch (_state.kind) {
    case Kind::checking:
    case Kind::downloading:
    case Kind::verifying:
    case Kind::installing:
        return false;
    case Kind::idle:
    case Kind::upToDate:
    case Kind::noUpdate:
    case Kind::available:
    case Kind::installed:
    case Kind::handedOver:
    case Kind::failed:
        return true;
    }
    return false;
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
    endCheck();
    _occasion = occasion;
    if (occasion == Occasion::user) {
        _schedule.noteCheck();
        setState(withMessage(Kind::checking, {}));
    }
    _check.start(
        [this, occasion](std::stop_token stopToken) { return check(occasion, stopToken); });
}

QCoro::Task<> AppcastUpdater::check(Occasion occasion, std::stop_token stopToken)
{
    const auto find = [find = _collaborators.findInstallation, stopToken] {
        return installationFound(find, stopToken);
    };
    auto finding = Tarnwick::onWorker(find);
    const Installation installation = co_await finding;
    if (stopToken.stop_requested()) {
        co_return;
    }
    _installation = installation;
    noteInstalledPackage();
    if (occasion == Occasion::background && !_installation.format()) {
        endCheck();
    } else {
        lookAtFeed(occasion);
    }
}

/// The package may have been replaced since this process began, by the installer that it was handed
/// to or by hand. Later checks compare with what would run after the next start.
void AppcastUpdater::noteInstalledPackage()
{
    const QString installed = QString::fromStdString(_installation.packageVersion);
    if (!installed.isEmpty() && compareVersions(installed, _collaborators.ownVersion) > 0) {
        _collaborators.ownVersion = installed;
        _installed.emplace();
        _installed->version = installed;
        _installed->displayedVersion = installed;
    }
}

void AppcastUpdater::lookAtFeed(Occasion occasion)
{
    if (const QString problem = networkProblem(); !problem.isEmpty()) {
        foundNone(withMessage(Kind::failed, problem));
        return;
    }
    const UpdateNeeds needed = needs(occasion);
    _feedCheck = std::make_unique<FeedCheck>(
        *_network,
        FeedCheck::Settings{
            .feed = _collaborators.source.feed,
            .needs = needed,
            .authorities = _collaborators.source.authorities});
    connect(_feedCheck.get(), &FeedCheck::found, this, &AppcastUpdater::found);
    connect(
        _feedCheck.get(), &FeedCheck::foundNothing, this, [this, needed](const NoUpdate& reason) {
            const auto kind = UpdateWording::isUpToDate(reason) ? Kind::upToDate : Kind::noUpdate;
            foundNone(orInstalled(withMessage(kind, UpdateWording::noUpdate(reason, needed))));
        });
    connect(_feedCheck.get(), &FeedCheck::failed, this, [this](const QString& message) {
        foundNone(withMessage(Kind::failed, message));
    });
}

/// What was installed is the newest version, but this process is an older one until the restart.
UpdateState AppcastUpdater::orInstalled(UpdateState none) const
{
    if (_installed) {
        none.kind = Kind::installed;
        none.offer = *_installed;
    }
    return none;
}

/// Makes the network unless it is there; the message of why it cannot be made, or an empty text.
QString AppcastUpdater::networkProblem()
{
    try {
        if (!_network) {
            _network = _collaborators.makeNetwork();
        }
        return {};
    } catch (const UpdateError& error) {
        return QString::fromUtf8(error.what());
    }
}

/// With it end its threads and its connections.
void AppcastUpdater::endNetwork()
{
    if (!_feedCheck && !_download) {
        _network.reset();
    }
}

/// Whoever asks for a check hears of a skipped version as well.
UpdateNeeds AppcastUpdater::needs(Occasion occasion) const
{
    return {
        .ownVersion = _collaborators.ownVersion,
        .systemVersion = _collaborators.systemVersion,
        .format = _installation.format(),
        .channels = _settings.channels(),
        .skippedVersion =
            occasion == Occasion::background ? _settings.skippedVersion() : QString{}};
}

void AppcastUpdater::found(const UpdateOffer& offer)
{
    UpdateState state;
    state.kind = Kind::available;
    state.offer = offer;
    state.wasAskedFor = _occasion == Occasion::user;
    endCheck();
    _delegate.updaterDidFindValidUpdate(offer);
    setState(state);
}

void AppcastUpdater::foundNone(const UpdateState& state)
{
    const bool wasAskedFor = _occasion == Occasion::user;
    endCheck();
    _delegate.updaterDidNotFindUpdate(state.message);
    if (wasAskedFor) {
        setState(state);
    }
}

void AppcastUpdater::endCheck()
{
    _occasion.reset();
    _check.cancel();
    discard(_feedCheck);
    endNetwork();
}

void AppcastUpdater::cancel()
{
    if (_state.kind == Kind::checking) {
        endCheck();
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
    _replacement.cancel();
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
    _settings.setSkippedVersion(_state.offer.version);
    setState({});
}

void AppcastUpdater::install()
{
    assert(_state.kind == Kind::available && _installation.format());
    endCheck();
    if (const QString problem = networkProblem(); !problem.isEmpty()) {
        failInstallation(problem);
        return;
    }
    _download = std::make_unique<UpdateDownload>(
        *_network,
        _state.offer,
        UpdateDownload::Settings{
            .folder = _collaborators.downloadFolder,
            .key = _collaborators.source.key,
            .authorities = _collaborators.source.authorities});
    connect(_download.get(), &UpdateDownload::progressed, this, [this](quint64 receivedBytes) {
        UpdateState state = _state;
        state.receivedBytes = receivedBytes;
        setState(state);
    });
    connect(
        _download.get(), &UpdateDownload::verifying, this, [this] { setKind(Kind::verifying); });
    connect(_download.get(), &UpdateDownload::finished, this, &AppcastUpdater::downloaded);
    connect(_download.get(), &UpdateDownload::failed, this, &AppcastUpdater::failInstallation);
    setKind(Kind::downloading);
}

void AppcastUpdater::downloaded(const std::filesystem::path& file)
{
    if (_installation.kind == Installation::Kind::appImage) {
        setKind(Kind::installing);
        _replacement.start(
            [this, &file](std::stop_token stopToken) { return replace(file, stopToken); });
        return;
    }
    _download->keepFile();
    discard(_download);
    endNetwork();
    UpdateState state = _state;
    state.kind = Kind::handedOver;
    state.package = file;
    setState(state);
    Q_EMIT packageReady(file);
}

QCoro::Task<> AppcastUpdater::replace(std::filesystem::path file, std::stop_token stopToken)
{
    const auto work = [file, oldFile = _installation.program] {
        return replacementProblem(oldFile, file);
    };
    auto replacing = Tarnwick::onWorker(work);
    const QString problem = co_await replacing;
    if (stopToken.stop_requested()) {
        co_return;
    }
    if (!problem.isEmpty()) {
        failInstallation(problem);
        co_return;
    }
    discard(_download);
    endNetwork();
    // What later checks compare with is what would run after the next start.
    _collaborators.ownVersion = _state.offer.version;
    _installed = _state.offer;
    setKind(Kind::installed);
}

void AppcastUpdater::failInstallation(const QString& message)
{
    discard(_download);
    endNetwork();
    setState(withMessage(Kind::failed, message));
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
