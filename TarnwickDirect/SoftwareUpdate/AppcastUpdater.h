#pragma once

#include "Tarnwick/Async/CancellableTask.h"
#include "TarnwickDirect/SoftwareUpdate/Installation.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateChoice.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateDownload.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateModule.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateSource.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateState.h"

namespace TarnwickDirect {

/// Finds, downloads and verifies updates from a feed. Holds the state and actions of the user
/// interface. Destruction cancels all work and removes temporary files. Main thread only.
class AppcastUpdater final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AppcastUpdater)

public:
    struct Settings {
        UpdateSource source;
        QString systemVersion;  ///< The kernel's, such as "6.1.0".
        std::function<Installation(std::stop_token)>
            findInstallation;  ///< Called on a worker thread.
    };

    /// Requires: the delegate outlives it.
    AppcastUpdater(ModuleHost host, Settings settings, UpdaterDelegate& delegate);
    ~AppcastUpdater() override;

    bool canCheckForUpdates() const;

    /// Starts a check by the user. Does nothing while none is possible.
    void checkForUpdates();

    /// Starts an automatic check, if a package could be installed and no update is being shown.
    void checkInBackground();

    const UpdateState& state() const { return _state; }

    /// From the last check.
    const Installation& installation() const { return _installation; }

    /// Cancels the visible check or download.
    void cancel();

    /// Closes the current message, or postpones the update.
    void dismiss();

    /// Skips this version in automatic checks. Requires: a non-critical update is available.
    void skip();

    /// Downloads and verifies. Requires: an available update, and `takesPackages()`.
    void install();

    /// Removes an unfinished download. Call at the end of the process, when other parts may be gone
    /// already; no other call may follow.
    void stop();

Q_SIGNALS:
    void canCheckForUpdatesChanged(bool canCheckForUpdates);
    void stateChanged();

    /// A verified package is ready for the system's installer.
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
    std::unique_ptr<QNetworkAccessManager> _network;  ///< Only during transfers.
    Installation _installation;
    UpdateState _state;
    QString _installedVersion;          ///< The version after a restart, if newer.
    std::optional<Occasion> _occasion;  ///< Of the running check.
    std::unique_ptr<HttpsFetch> _fetch;
    QByteArray _feed;
    std::unique_ptr<UpdateDownload> _download;
    Tarnwick::CancellableTask _check;
};

}  // namespace TarnwickDirect
