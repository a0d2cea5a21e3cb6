#pragma once

#include "Fakes/EventLoop.h"
#include "Fakes/FakeClock.h"
#include "Fakes/MemoryDefaultsStore.h"
#include "Persistence/FileTrouble.h"
#include "SoftwareUpdate/Signing.h"
#include "SoftwareUpdate/TlsServer.h"
#include "TarnwickDirect/SoftwareUpdate/AppcastUpdater.h"
#include "TarnwickDirect/SoftwareUpdate/Network/SystemNetwork.h"
#include "TarnwickDirect/SoftwareUpdate/UpdaterDelegate.h"

#include <atomic>

#include <gmock/gmock.h>

namespace TestSupport {

/// Records what it hears: "found 2.0", or the sentence.
class RecordingDelegate final : public TarnwickDirect::UpdaterDelegate {
public:
    void updaterDidFindValidUpdate(const TarnwickDirect::UpdateOffer& offer) override
    {
        heard.push_back("found " + offer.version.toStdString());
    }

    void updaterDidNotFindUpdate(const QString& error) override
    {
        heard.push_back(error.toStdString());
    }

    std::vector<std::string> heard;
};

/// An updater of version 1.0 that runs as an AppImage and was looked after two hours ago, with a
/// server whose feed offers version 2.0.
class UpdaterTest : public testing::Test {
public:
    UpdaterTest(const UpdaterTest&) = delete;
    UpdaterTest& operator=(const UpdaterTest&) = delete;

protected:
    using Kind = TarnwickDirect::UpdateState::Kind;

    UpdaterTest();
    ~UpdaterTest() override;

    /// Starts the program; a second call starts it anew.
    void start();

    /// Waits until the state is of this kind.
    bool reaches(Kind kind);

    /// Has the user check, and waits until that has ended.
    Kind check();

    /// Has the user check and install, and waits until that has ended.
    Kind install();

    /// The feed's only item, with a signature for the program's bytes.
    QByteArray item(const QByteArray& version, const QByteArray& more = {}) const;

    void serveFeed(const QByteArray& items);

    /// Serves the program, but never its last byte.
    void stallDownload();

    std::string message() const { return updater->state().message.toStdString(); }

    bool isNothingLeft() const;

    const QByteArray program = QByteArray(300'000, 'p') + "version 2.0";
    TlsServer server;
    SigningKey key;
    FileTrouble::Folder folder;
    std::filesystem::path appImage = folder / "Tarnwick.AppImage";
    std::shared_ptr<Fakes::MemoryDefaultsStore> defaults =
        std::make_shared<Fakes::MemoryDefaultsStore>();
    std::shared_ptr<FakeClock> clock = std::make_shared<FakeClock>();
    RecordingDelegate delegate;
    TarnwickDirect::Installation installation;
    std::atomic<int> installationQueries = 0;
    int networks = 0;  ///< How often the network was made.
    TarnwickDirect::MakeHttpsNetwork makeNetwork = [] {
        return std::make_unique<TarnwickDirect::SystemNetwork>();
    };
    std::vector<Kind> kinds;  ///< Each kind of state, in order, once for as long as it lasted.
    std::vector<bool> canCheckValues;
    std::vector<std::filesystem::path> packages;
    std::unique_ptr<TarnwickDirect::AppcastUpdater> updater;
};

}  // namespace TestSupport
