#include "SoftwareUpdate/UpdaterFixture.h"

#include <QThreadPool>

namespace TestSupport {

using namespace TarnwickDirect;

UpdaterTest::UpdaterTest()
{
    server.serve("/tarnwick.deb", package);
    serveFeed(item("2.0"));
}

/// Nothing of this is gone while a worker still asks for the installation.
UpdaterTest::~UpdaterTest()
{
    desktop.reset();
    QThreadPool::globalInstance()->waitForDone();
}

void UpdaterTest::start()
{
    desktop.reset();
    desktop = std::make_unique<DesktopUpdater>(
        ModuleHost{
            .version = QStringLiteral("1.0"),
            .downloadFolder = folder / "updates",
            .channels = [this] { return channels; },
            .skippedVersion = [this] { return skippedVersion; },
            .skip = [this](const QString& version) { skippedVersion = version; },
            .bringToFront =
                [this](QWidget& window) {
                    ++arrivals;
                    window.show();
                    window.activateWindow();
                },
            .takeFocusBack = [this] { ++returns; }},
        AppcastUpdater::Settings{
            .source =
                {.feed = server.url("/feed.xml"),
                 .key = key.publicKey(),
                 .authorities = TlsServer::authorities()},
            .systemVersion = QStringLiteral("6.1.0"),
            .findInstallation =
                [this](std::stop_token) {
                    ++installationQueries;
                    return installation;
                }},
        delegate,
        [this](const std::filesystem::path& file) { packages.push_back(file); });
    QObject::connect(&updater(), &AppcastUpdater::stateChanged, [this] {
        if (kinds.empty() || kinds.back() != state().kind) {
            kinds.push_back(state().kind);
        }
    });
    QObject::connect(
        desktop.get(), &UpdaterController::canCheckForUpdatesChanged, [this](bool canCheck) {
            EXPECT_EQ(canCheck, desktop->canCheckForUpdates());
            canCheckValues.push_back(canCheck);
        });
}

bool UpdaterTest::reaches(Kind kind)
{
    return eventually([&] { return state().kind == kind; });
}

UpdaterTest::Kind UpdaterTest::check()
{
    desktop->checkForUpdates();
    EXPECT_TRUE(eventually([this] { return state().kind != Kind::checking; }));
    return state().kind;
}

UpdaterTest::Kind UpdaterTest::install()
{
    EXPECT_EQ(check(), Kind::available);
    updater().install();
    EXPECT_TRUE(eventually([this] { return updater().canCheckForUpdates(); }));
    return state().kind;
}

QByteArray UpdaterTest::item(const QByteArray& version, const QByteArray& more) const
{
    return "<item><sparkle:version>" + version + "</sparkle:version>" + more + "<enclosure url=\""
           + server.url("/tarnwick.deb").toEncoded() + "\" length=\""
           + QByteArray::number(package.size()) + "\" sparkle:edSignature=\""
           + key.signature(package).toLatin1() + "\"/></item>";
}

void UpdaterTest::serveFeed(const QByteArray& items)
{
    server.serve(
        "/feed.xml", "<rss xmlns:sparkle=\"urn:feed\"><channel>" + items + "</channel></rss>");
}

void UpdaterTest::stallDownload()
{
    server.answer("/tarnwick.deb", [this](QSslSocket& connection) {
        connection.write(okay(package).chopped(1));
    });
}

bool UpdaterTest::isNothingLeft() const
{
    const auto downloads = folder / "updates";
    return !exists(downloads) || is_empty(downloads);
}

}  // namespace TestSupport
