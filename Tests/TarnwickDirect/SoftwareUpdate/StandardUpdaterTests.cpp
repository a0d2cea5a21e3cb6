#include "TarnwickDirect/SoftwareUpdate/StandardUpdater.h"

#include "Fakes/EventLoop.h"
#include "Fakes/FakeClock.h"
#include "Fakes/MemoryDefaultsStore.h"
#include "Persistence/FileTrouble.h"
#include "SoftwareUpdate/UpdaterFixture.h"
#include "TarnwickDirect/SoftwareUpdate/SystemVersion.h"

#include <gmock/gmock.h>

namespace {

using namespace TarnwickDirect;
using testing::ElementsAre;
using Kind = UpdateState::Kind;

std::string versionIn(const char16_t* kernelVersion)
{
    return systemVersionIn(QString::fromUtf16(kernelVersion)).toStdString();
}

TEST(SystemVersion, isTheNumbersAtTheBeginning)
{
    EXPECT_EQ(versionIn(u"6.1.0-18-amd64"), "6.1.0");
    EXPECT_EQ(versionIn(u"5.15.0-105-generic"), "5.15.0");
    EXPECT_EQ(versionIn(u"6.8.9.arch1-2"), "6.8.9");
    EXPECT_EQ(versionIn(u"6.9"), "6.9");
    EXPECT_EQ(versionIn(u"unknown"), "");
}

class StandardUpdaterTest : public testing::Test {
protected:
    StandardUpdaterTest()
    {
        qputenv("XDG_CACHE_HOME", folder.path().c_str());
        std::filesystem::create_directories(downloads / "abcdef");
    }

    ~StandardUpdaterTest() override
    {
        if (cacheHome.isNull()) {
            qunsetenv("XDG_CACHE_HOME");
        } else {
            qputenv("XDG_CACHE_HOME", cacheHome);
        }
    }

    std::unique_ptr<AppcastUpdater> start(const QUrl& feed)
    {
        return standardUpdater(
            {.feed = feed, .key = {}},
            QStringLiteral("1.0"),
            {},
            std::make_shared<Fakes::MemoryDefaultsStore>(),
            std::make_shared<TestSupport::FakeClock>(),
            delegate);
    }

    const QByteArray cacheHome = qgetenv("XDG_CACHE_HOME");
    FileTrouble::Folder folder;
    std::filesystem::path downloads = folder / "dev.tarnwick.Tarnwick/updates";
    TestSupport::RecordingDelegate delegate;
};

TEST_F(StandardUpdaterTest, downloadsIntoTheCacheFolder)
{
    const auto updater = start(QUrl(QStringLiteral("https://127.0.0.1/feed.xml")));
    EXPECT_FALSE(exists(downloads));
    EXPECT_TRUE(exists(downloads.parent_path()));
}

TEST_F(StandardUpdaterTest, trustsOnlyWhatTheSystemTrusts)
{
    TestSupport::TlsServer server;
    const auto updater = start(server.url("/feed.xml"));
    updater->checkForUpdates();
    ASSERT_TRUE(TestSupport::eventually([&] { return updater->state().kind == Kind::failed; }));
    EXPECT_EQ(updater->installation().kind, Installation::Kind::source);
    EXPECT_THAT(
        delegate.heard,
        ElementsAre(
            "The update feed could not be fetched: the server could not prove its identity."));
    EXPECT_TRUE(server.requests().empty());
}

}  // namespace
