#include "TarnwickDirect/SoftwareUpdate/UpdateDownload.h"

#include "Fakes/EventLoop.h"
#include "Persistence/FileTrouble.h"
#include "SoftwareUpdate/Packages.h"
#include "SoftwareUpdate/Signing.h"
#include "SoftwareUpdate/TlsServer.h"

#include <QNetworkAccessManager>
#include <QThreadPool>

#include <semaphore>

namespace {

using namespace TarnwickDirect;
using namespace TestSupport;

class UpdateDownloadTest : public testing::Test {
protected:
    UpdateDownloadTest()
    {
        server.serve("/tarnwick.deb", file);
        offer.version = QStringLiteral("2.0");
        offer.url = server.url("/tarnwick.deb");
        offer.fileName = QStringLiteral("tarnwick.deb");
        offer.length = std::uint64_t(file.size());
        offer.signature = key.sign(file);
    }

    void begin()
    {
        download = std::make_unique<UpdateDownload>(
            network,
            offer,
            UpdateDownload::Settings{
                .folder = folder / "updates",
                .trust = {.key = key.publicKey(), .package = QStringLiteral("tarnwick")},
                .authorities = TlsServer::authorities()});
        QObject::connect(
            download.get(), &UpdateDownload::progressed, &context, [this](quint64 bytes) {
                progress.push_back(bytes);
            });
        QObject::connect(download.get(), &UpdateDownload::verifying, &context, [this] {
            EXPECT_EQ(progress.back(), offer.length);
            isVerifying = true;
        });
        QObject::connect(
            download.get(),
            &UpdateDownload::finished,
            &context,
            [this](const std::filesystem::path& path) {
                downloaded = path;
                ending += "finished";
            });
        QObject::connect(
            download.get(), &UpdateDownload::failed, &context, [this](const QString& message) {
                ending += message.toStdString();
            });
    }

    /// How it ends: "finished" or the message, and both where there are two endings.
    std::string run()
    {
        begin();
        if (!eventually([this] { return !ending.empty(); })) {
            return "no end";
        }
        processEvents();
        return ending;
    }

    bool isNothingLeft() const
    {
        return !exists(folder / "updates") || is_empty(folder / "updates");
    }

    const QByteArray file = debianPackage("2.0-1");
    TlsServer server;
    SigningKey key;
    Folder folder;
    QNetworkAccessManager network;
    UpdateOffer offer;
    QObject context;
    std::vector<quint64> progress;
    bool isVerifying = false;
    std::filesystem::path downloaded;
    std::string ending;
    std::unique_ptr<UpdateDownload> download;
};

TEST_F(UpdateDownloadTest, yieldsTheVerifiedFile)
{
    EXPECT_EQ(run(), "finished");
    EXPECT_EQ(downloaded.filename(), "tarnwick.deb");
    EXPECT_EQ(contentsOf(downloaded), file.toStdString());
    EXPECT_TRUE(isVerifying);
    EXPECT_TRUE(std::ranges::is_sorted(progress));
}

TEST_F(UpdateDownloadTest, keepsTheFileFromOtherUsersAndLeavesNothingAtItsEnd)
{
    EXPECT_EQ(run(), "finished");
    EXPECT_EQ(modeOf(downloaded.parent_path()), 0700U);
    EXPECT_EQ(downloaded.parent_path().parent_path(), folder / "updates");
    download.reset();
    EXPECT_TRUE(isNothingLeft());
}

TEST_F(UpdateDownloadTest, takesTheNameOfTheOfferAndNotOfTheRedirect)
{
    server.serve("/elsewhere/evil.sh", file);
    server.redirect("/tarnwick.deb", server.url("/elsewhere/evil.sh"));
    EXPECT_EQ(run(), "finished");
    EXPECT_EQ(downloaded.filename(), "tarnwick.deb");
}

TEST_F(UpdateDownloadTest, deletesWhatFailsVerification)
{
    offer.signature = SigningKey(2).sign(file);
    EXPECT_EQ(
        run(), "The download \"tarnwick.deb\" was deleted because its signature is not valid.");
    EXPECT_TRUE(isNothingLeft());
}

TEST_F(UpdateDownloadTest, stopsWhereTheServerSendsMoreThanTheFeedTells)
{
    offer.length = 1000;
    EXPECT_EQ(run(), "\"tarnwick.deb\" could not be fetched: it is larger than 1.0 kB.");
    EXPECT_FALSE(isVerifying);
    EXPECT_TRUE(isNothingLeft());
}

TEST_F(UpdateDownloadTest, deletesWhatIsShorterThanTheFeedTells)
{
    server.serve("/tarnwick.deb", "short");
    offer.length = 6;
    begin();
    QObject::disconnect(download.get(), &UpdateDownload::verifying, &context, nullptr);
    ASSERT_TRUE(eventually([this] { return !ending.empty(); }));
    EXPECT_EQ(
        ending, "The download \"tarnwick.deb\" was deleted because it has 5 bytes instead of 6.");
    EXPECT_TRUE(isNothingLeft());
}

TEST_F(UpdateDownloadTest, leavesNothingOnAFullDisk)
{
    const LargestFile limit(200'000);
    EXPECT_EQ(run(), "\"tarnwick.deb\" could not be saved: File too large.");
    EXPECT_TRUE(isNothingLeft());
}

TEST_F(UpdateDownloadTest, tellsThatTheFolderCannotBeMade)
{
    writeFile(folder / "updates", "a file in its place");
    EXPECT_THAT(run(), StartsWith("The update could not be saved: "));
    EXPECT_THAT(folder.names(), ElementsAre("updates"));
    EXPECT_THAT(server.requests(), IsEmpty());
}

TEST_F(UpdateDownloadTest, leavesNothingWhenItIsCancelledOnTheWay)
{
    server.answer("/tarnwick.deb", [this](QSslSocket& connection) {
        connection.write(okay(file).chopped(10));
    });
    begin();
    ASSERT_TRUE(eventually([this] { return !progress.empty(); }));
    EXPECT_FALSE(isNothingLeft());
    download.reset();
    EXPECT_TRUE(isNothingLeft());
    EXPECT_TRUE(eventually([this] { return server.openConnections() == 0; }));
    EXPECT_EQ(ending, "");
}

TEST_F(UpdateDownloadTest, leavesNothingWhenItIsCancelledDuringVerification)
{
    // The verification cannot end before it is cancelled, for no thread has time for it.
    QThreadPool& pool = *QThreadPool::globalInstance();
    std::counting_semaphore<> freed(0);
    for (int thread = 0; thread < pool.maxThreadCount(); ++thread) {
        pool.start([&freed] { freed.acquire(); });
    }
    begin();
    const bool isReached = eventually([this] { return isVerifying; });
    download.reset();
    freed.release(pool.maxThreadCount());
    pool.waitForDone();
    processEvents();
    EXPECT_TRUE(isReached);
    EXPECT_TRUE(isNothingLeft());
    EXPECT_EQ(ending, "");
}

TEST_F(UpdateDownloadTest, mayBeDestroyedByEachOfItsSignals)
{
    const auto isDestroyedBy = [this](auto signal) {
        begin();
        QObject::connect(download.get(), signal, &context, [this] { download.reset(); });
        return eventually([this] { return !download; });
    };
    EXPECT_TRUE(isDestroyedBy(&UpdateDownload::progressed));
    EXPECT_TRUE(isDestroyedBy(&UpdateDownload::verifying));
    EXPECT_TRUE(isDestroyedBy(&UpdateDownload::finished));
    offer.length = 1000;
    EXPECT_TRUE(isDestroyedBy(&UpdateDownload::failed));
    EXPECT_TRUE(isNothingLeft());
}

}  // namespace
