#pragma once

#include "Tarnwick/Async/CancellableTask.h"
#include "TarnwickDirect/SoftwareUpdate/DailySchedule.h"
#include "TarnwickDirect/SoftwareUpdate/FeedCheck.h"
#include "TarnwickDirect/SoftwareUpdate/Installation.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateDownload.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateSource.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateState.h"

namespace TarnwickDirect {

class UpdaterDelegate;

/// Keeps the program up to date from a feed. It looks at the feed when the user asks and, where
/// this copy of the program can be replaced by what the feed offers, once a day by itself: what
/// comes of that is silence or an update. What the user sees and does is here, and how it looks
/// elsewhere. Main thread only. The end of the object ends what runs and leaves nothing behind.
/// Nothing of the network is made before the first look at the feed.
class AppcastUpdater final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(AppcastUpdater)

public:
    struct Collaborators {
        UpdateSource source;
        QString ownVersion;
        QString systemVersion;                 ///< The kernel's, such as "6.1.0".
        std::filesystem::path downloadFolder;  ///< Of this program alone: it is emptied.
        std::function<Installation(std::stop_token)> findInstallation;  ///< Called on a worker.
        std::shared_ptr<Tarnwick::DefaultsStore> defaults;
        std::shared_ptr<Tarnwick::Clock> clock;
        MakeHttpsNetwork makeNetwork;  ///< Called when something is to be fetched.
    };

    /// The first check by itself comes a minute later at the earliest. Requires: every collaborator
    /// is there, and the delegate lives longer.
    AppcastUpdater(Collaborators collaborators, UpdaterDelegate& delegate);
    ~AppcastUpdater() override;

    /// Whether the user can ask for a check now.
    bool canCheckForUpdates() const;

    /// A check that the user asked for. Does nothing while none is possible.
    void checkForUpdates();

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

    /// Downloads, verifies and installs. Requires: an update is available, and this installation
    /// can take it.
    void install();

    /// For the end of the process: removes what has been begun, and touches nothing else, of which
    /// parts may be gone already. No other call may follow.
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

    void checkInBackground();
    void begin(Occasion occasion);
    QCoro::Task<> check(Occasion occasion, std::stop_token stopToken);
    void noteInstalledPackage();
    void lookAtFeed(Occasion occasion);
    QString networkProblem();
    void endNetwork();
    UpdateNeeds needs(Occasion occasion) const;
    void found(const UpdateOffer& offer);
    void foundNone(const UpdateState& state);
    UpdateState orInstalled(UpdateState none) const;
    void endCheck();
    void downloaded(const std::filesystem::path& file);
    QCoro::Task<> replace(std::filesystem::path file, std::stop_token stopToken);
    void failInstallation(const QString& message);
    void setState(UpdateState state);
    void setKind(UpdateState::Kind kind);

    Collaborators _collaborators;
    UpdaterDelegate& _delegate;
    UpdateSettings _settings;
    DailySchedule _schedule;
    std::unique_ptr<HttpsNetwork> _network;  ///< While something is fetched.
    Installation _installation;
    UpdateState _state;
    std::optional<UpdateOffer> _installed;  ///< Waits for the program's restart.
    std::optional<Occasion> _occasion;      ///< Of the check that runs.
    std::unique_ptr<FeedCheck> _feedCheck;
    std::unique_ptr<UpdateDownload> _download;
    Tarnwick::CancellableTask _check;
    Tarnwick::CancellableTask _replacement;
};

}  // namespace TarnwickDirect
