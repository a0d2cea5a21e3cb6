#include "TarnwickDirect/SoftwareUpdate/NetworkModule.h"

#include "Fakes/EventLoop.h"
#include "SoftwareUpdate/TlsServer.h"
#include "SoftwareUpdate/UpdateErrors.h"
#include "SoftwareUpdate/UpdaterFixture.h"
#include "TarnwickDirect/SoftwareUpdate/HttpsFetch.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

namespace {

using namespace TarnwickDirect;
using testing::ElementsAre;

TEST(NetworkModule, liesBesideTheFolderOfThePrograms)
{
    EXPECT_EQ(
        networkModulePath(QStringLiteral("/usr/bin")),
        QStringLiteral("/usr/lib/tarnwick/modules/tarnwick-https.so"));
}

TEST(NetworkModule, fetches)
{
    TestSupport::TlsServer server;
    server.serve("/feed", "feed");
    const auto network =
        networkFromModule(networkModulePath(QCoreApplication::applicationDirPath()));
    HttpsFetch fetch(
        *network,
        {.url = server.url("/feed"),
         .subject = QStringLiteral("The update feed"),
         .byteLimit = 4,
         .timeLimit = std::nullopt,
         .authorities = TestSupport::TlsServer::authorities()});
    QByteArray bytes;
    bool hasFinished = false;
    QObject::connect(
        &fetch, &HttpsFetch::received, [&](const QByteArray& piece) { bytes += piece; });
    QObject::connect(&fetch, &HttpsFetch::finished, [&] { hasFinished = true; });
    EXPECT_TRUE(TestSupport::eventually([&] { return hasFinished; }));
    EXPECT_EQ(bytes, "feed");
}

TEST(NetworkModule, isMissedWithItsPath)
{
    EXPECT_EQ(
        TestSupport::updateErrorOf(
            [] { networkFromModule(QStringLiteral("/nowhere/tarnwick-https.so")); }),
        "Updates cannot be fetched because \"/nowhere/tarnwick-https.so\" cannot be loaded.");
}

class MissingNetworkTest : public TestSupport::UpdaterTest {};

TEST_F(MissingNetworkTest, isToldToWhoAsksForACheck)
{
    makeNetwork = [] { return networkFromModule(QStringLiteral("/nowhere.so")); };
    start();
    EXPECT_EQ(check(), Kind::failed);
    EXPECT_EQ(message(), "Updates cannot be fetched because \"/nowhere.so\" cannot be loaded.");
    EXPECT_THAT(
        delegate.heard,
        ElementsAre("Updates cannot be fetched because \"/nowhere.so\" cannot be loaded."));
}

}  // namespace
