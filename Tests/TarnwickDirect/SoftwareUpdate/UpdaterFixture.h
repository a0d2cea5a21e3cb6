#pragma once

#include "Fakes/EventLoop.h"
#include "Persistence/FileTrouble.h"
#include "SoftwareUpdate/Packages.h"
#include "SoftwareUpdate/Signing.h"
#include "SoftwareUpdate/TlsServer.h"
#include "TarnwickDirect/SoftwareUpdate/DesktopUpdater.h"

#include <atomic>

namespace TestSupport {

/// Records what it hears: "found 2.0", or the sentence.
class RecordingDelegate final : public TarnwickDirect::UpdaterDelegate {
public:
    void updaterDidFindValidUpdate(const QString& version) override
    {
        heard.push_back("found " + version.toStdString());
    }

    void updaterDidNotFindUpdate(const QString& error) override
    {
        heard.push_back(error.toStdString());
    }

    std::vector<std::string> heard;
};

/// An updater of version 1.0 that came in a package, with a server whose feed offers version 2.0.
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

    TarnwickDirect::AppcastUpdater& updater() { return desktop->updater(); }

    const TarnwickDirect::UpdateState& state() { return updater().state(); }

    /// Waits until the state is of this kind.
    bool reaches(Kind kind);

    /// Has the user check, and waits until that has ended.
    Kind check();

    /// Has the user check and install, and waits until that has ended.
    Kind install();

    /// The feed's only item, with a signature of the package.
    QByteArray item(const QByteArray& version, const QByteArray& more = {}) const;

    void serveFeed(const QByteArray& items);

    /// Serves the package, but never its last byte.
    void stallDownload();

    /// What the dialog tells: its title and its message.
    std::string told()
    {
        return state().title.toStdString() + ": " + state().message.toStdString();
    }

    bool isNothingLeft() const;

    const QByteArray package = debianPackage("2.0-1");
    TlsServer server;
    SigningKey key;
    TestSupport::Folder folder;
    RecordingDelegate delegate;
    TarnwickDirect::Installation installation{
        .kind = TarnwickDirect::Installation::Kind::debianPackage,
        .package = QStringLiteral("tarnwick:amd64"),
        .packageVersion = QStringLiteral("1.0")};
    std::atomic<int> installationQueries = 0;
    std::set<QString> channels;
    QString skippedVersion;
    int arrivals = 0;         ///< How often a window was brought to the front.
    int returns = 0;          ///< How often the focus was given back.
    std::vector<Kind> kinds;  ///< Each kind of state, in order, once for as long as it lasted.
    std::vector<bool> canCheckValues;
    std::vector<std::filesystem::path> packages;  ///< Those that were opened.
    std::unique_ptr<TarnwickDirect::DesktopUpdater> desktop;
};

}  // namespace TestSupport
