#include "SoftwareUpdate/UpdaterFixture.h"

#include <QThreadPool>

namespace TestSupport {

using namespace TarnwickDirect;

UpdaterTest::UpdaterTest()
{
    FileTrouble::writeFile(appImage, "version 1.0");
    installation = {.kind = Installation::Kind::appImage, .program = appImage};
    Tarnwick::writeDate(*defaults, "updates.lastCheck", clock->now() - std::chrono::hours(2));
    server.serve("/Tarnwick.AppImage", program);
    server.serve("/tarnwick.deb", program);
    serveFeed(item("2.0"));
}

/// Nothing of this is gone while a worker still asks for the installation.
UpdaterTest::~UpdaterTest()
{
    updater.reset();
    QThreadPool::globalInstance()->waitForDone();
}

void UpdaterTest::start()
{
    updater.reset();
    updater = std::make_unique<AppcastUpdater>(
        AppcastUpdater::Collaborators{
            .source =
                {.feed = server.url("/feed.xml"),
                 .key = key.publicKey(),
                 .authorities = TlsServer::authorities()},
            .ownVersion = QStringLiteral("1.0"),
            .systemVersion = QStringLiteral("6.1.0"),
            .downloadFolder = folder / "updates",
            .findInstallation =
                [this](std::stop_token) {
                    ++installationQueries;
                    return installation;
                },
            .defaults = defaults,
            .clock = clock,
            .makeNetwork =
                [this] {
                    ++networks;
                    return makeNetwork();
                }},
        delegate);
    const AppcastUpdater* const made = updater.get();
    QObject::connect(made, &AppcastUpdater::stateChanged, [this, made] {
        if (kinds.empty() || kinds.back() != made->state().kind) {
            kinds.push_back(made->state().kind);
        }
    });
    QObject::connect(made, &AppcastUpdater::canCheckForUpdatesChanged, [this, made](bool canCheck) {
        EXPECT_EQ(canCheck, made->canCheckForUpdates());
        canCheckValues.push_back(canCheck);
    });
    QObject::connect(
        made, &AppcastUpdater::packageReady, [this](const std::filesystem::path& file) {
            packages.push_back(file);
        });
}

bool UpdaterTest::reaches(Kind kind)
{
    return eventually([&] { return updater->state().kind == kind; });
}

UpdaterTest::Kind UpdaterTest::check()
{
    updater->checkForUpdates();
    EXPECT_TRUE(eventually([this] { return updater->state().kind != Kind::checking; }));
    return updater->state().kind;
}

UpdaterTest::Kind UpdaterTest::install()
{
    EXPECT_EQ(check(), Kind::available);
    updater->install();
    EXPECT_TRUE(eventually([this] { return updater->canCheckForUpdates(); }));
    return updater->state().kind;
}

QByteArray UpdaterTest::item(const QByteArray& version, const QByteArray& more) const
{
    QByteArray enclosures;
    for (const char* const name : {"/Tarnwick.AppImage", "/tarnwick.deb"}) {
        enclosures += "<enclosure url=\"" + server.url(name).toEncoded() + "\" length=\""
                      + QByteArray::number(program.size()) + "\" sparkle:edSignature=\""
                      + key.signature(program).toLatin1() + "\"/>";
    }
    return "<item><sparkle:version>" + version + "</sparkle:version>" + more + enclosures
           + "</item>";
}

void UpdaterTest::serveFeed(const QByteArray& items)
{
    server.serve(
        "/feed.xml", "<rss xmlns:sparkle=\"urn:feed\"><channel>" + items + "</channel></rss>");
}

void UpdaterTest::stallDownload()
{
    server.answer("/Tarnwick.AppImage", [this](QSslSocket& connection) {
        connection.write(okay(program).chopped(1));
    });
}

bool UpdaterTest::isNothingLeft() const
{
    const auto downloads = folder / "updates";
    return !exists(downloads) || is_empty(downloads);
}

}  // namespace TestSupport
