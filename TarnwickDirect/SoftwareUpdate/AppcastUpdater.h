#pragma once

#include "Tarnwick/Async/CancellableTask.h"
#include "TarnwickDirect/SoftwareUpdate/Installation.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateChoice.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateDownload.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateModule.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateSource.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateState.h"

namespace TarnwickDirect {

/// Finds, downloads and verifies updates from a feed. What the user sees and does is here, and how
/// it looks elsewhere. Main thread only. Destroying the object ends what runs and leaves nothing
/// behind.
class AppcastUpdater final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AppcastUpdater)

public:
    struct Settings {
        UpdateSource source;
        QString systemVersion;  ///< The kernel's, such as "6.1.0".
        std::function<Installation(std::stop_token)> findInstallation;  ///< Called on a worker.
    };

    /// Requires: the delegate lives longer.
    AppcastUpdater(ModuleHost host, Settings settings, UpdaterDelegate& delegate);
    ~AppcastUpdater() override;

    /// Whether the user can ask for a check now.
    bool canCheckForUpdates() const;

    /// A check that the user asked for. Does nothing while none is possible.
    void checkForUpdates();

    /// A check that nobody asked for, where a downloaded package could be installed and the user
    /// sees nothing that it could disturb.
    void checkInBackground();

    const UpdateState& state() const { return _state; }

    /// As the last check found it.
    const Installation& installation() const { return _installation; }

    /// Ends the check or the download that the user sees.
    void cancel();

    /// The user has read what is shown, or wants to be reminded of the update later.
    void dismiss();

    /// The user does not want to hear of this version again, unless by asking for a check.
    /// Requires: an update is available that is not critical.
    void skip();

    /// Downloads and verifies. Requires: an update is available, and this installation takes
    /// packages.
    void install();

    /// For the end of the process: removes an unfinished download and touches nothing else, of
    /// which parts may be gone already. No other call may follow.
    void stop();

Q_SIGNALS:
    void canCheckForUpdatesChanged(bool canCheckForUpdates);
    void stateChanged();

    /// A verified package file waits for the system's installer.
    void packageReady(const std::filesystem::path& file);

private:
    enum class Occasion {
        background,
        user
    };

    void begin(Occasion occasion);
    QCoro::Task<> check(Occasion occasion, std::stop_token stopToken);
    void noteInstalledPackage();
    void fetchFeed();
    QCoro::Task<> choose(std::stop_token stopToken);
    UpdateNeeds needs() const;
    void found(const UpdateOffer& offer);
    void foundNone(const NoUpdate& reason);
    void endCheck(const QString& title, const QString& message);
    void stopCheck();
    QNetworkAccessManager& network();
    void endNetwork();
    void downloaded(const std::filesystem::path& file);
    void failDownload(const QString& message);
    void setState(UpdateState state);
    void setKind(UpdateState::Kind kind);

    ModuleHost _host;
    Settings _settings;
    UpdaterDelegate& _delegate;
    std::unique_ptr<QNetworkAccessManager> _network;  ///< While something is fetched.
    Installation _installation;
    UpdateState _state;
    QString _installedVersion;          ///< What runs after a restart, where that is newer.
    std::optional<Occasion> _occasion;  ///< Of the check that runs.
    std::unique_ptr<HttpsFetch> _fetch;
    QByteArray _feed;
    std::unique_ptr<UpdateDownload> _download;
    Tarnwick::CancellableTask _check;
};

}  // namespace TarnwickDirect
