#include "TarnwickDirect/SoftwareUpdate/HttpsFetch.h"

#include "Fakes/EventLoop.h"
#include "SoftwareUpdate/TlsServer.h"

#include <QNetworkAccessManager>
#include <QTimer>

namespace {

using namespace TarnwickDirect;
using namespace TestSupport;

class HttpsFetchTest : public testing::Test {
protected:
    void begin(const QUrl& url)
    {
        request.url = url;
        fetch = std::make_unique<HttpsFetch>(network, request);
        QObject::connect(
            fetch.get(), &HttpsFetch::received, &context, [this](const QByteArray& piece) {
                bytes += piece;
            });
        QObject::connect(
            fetch.get(), &HttpsFetch::finished, &context, [this] { ending += "finished"; });
        QObject::connect(
            fetch.get(), &HttpsFetch::failed, &context, [this](const QString& message) {
                ending += message.toStdString();
            });
    }

    /// How the fetch ends: "finished" or the reason, and both where there are two endings.
    std::string run(const QUrl& url)
    {
        ending.clear();
        bytes.clear();
        begin(url);
        if (!eventually([this] { return !ending.empty(); })) {
            return "no end";
        }
        processEvents();
        const std::string beginning = "The update feed could not be fetched: ";
        return ending.starts_with(beginning) ? ending.substr(beginning.size()) : ending;
    }

    std::string runFeed() { return run(server.url("/feed")); }

    /// Has the server begin an answer of ten bytes with four, and no more.
    void stall()
    {
        server.answer("/feed", [](QSslSocket& connection) {
            connection.write("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhalf");
        });
    }

    TlsServer server;
    QNetworkAccessManager network;
    FetchRequest request{
        .url = {},
        .subject = QStringLiteral("The update feed"),
        .byteLimit = 1'000'000,
        .silenceLimit = 20s,
        .timeLimit = std::nullopt,
        .authorities = TlsServer::authorities()};
    QObject context;
    QByteArray bytes;
    std::string ending;
    std::unique_ptr<HttpsFetch> fetch;
};

TEST_F(HttpsFetchTest, bringsTheBytes)
{
    server.serve("/feed", QByteArray(700'000, 'x'));
    EXPECT_EQ(runFeed(), "finished");
    EXPECT_EQ(bytes, QByteArray(700'000, 'x'));
}

TEST_F(HttpsFetchTest, bringsNothingWhereThereIsNothing)
{
    server.serve("/feed", "");
    EXPECT_EQ(runFeed(), "finished");
    EXPECT_TRUE(bytes.isEmpty());
}

TEST_F(HttpsFetchTest, followsFiveRedirectsAndNoMore)
{
    for (int number = 6; number > 0; --number) {
        const std::string from = "/" + std::to_string(number);
        const std::string target = "/" + std::to_string(number - 1);
        server.redirect(from.c_str(), server.url(target.c_str()));
    }
    server.serve("/0", "at last");
    EXPECT_EQ(run(server.url("/5")), "finished");
    EXPECT_EQ(bytes, "at last");
    EXPECT_EQ(run(server.url("/6")), "the server redirected too often.");
}

TEST_F(HttpsFetchTest, refusesARedirectToPlainHttp)
{
    QTcpServer plain;
    ASSERT_TRUE(plain.listen(QHostAddress::LocalHost));
    server.redirect(
        "/feed", QUrl(QStringLiteral("http://127.0.0.1:%1/feed").arg(plain.serverPort())));
    EXPECT_EQ(runFeed(), "the server redirected to an address that is not HTTPS.");
    EXPECT_FALSE(plain.hasPendingConnections());
}

TEST_F(HttpsFetchTest, refusesARedirectToAFile)
{
    server.redirect("/feed", QUrl(QStringLiteral("file:///etc/passwd")));
    EXPECT_EQ(runFeed(), "the server redirected to an address that is not HTTPS.");
    EXPECT_TRUE(bytes.isEmpty());
}

TEST_F(HttpsFetchTest, refusesPlainAddressesWithoutAsking)
{
    QTcpServer plain;
    ASSERT_TRUE(plain.listen(QHostAddress::LocalHost));
    EXPECT_EQ(
        run(QUrl(QStringLiteral("http://127.0.0.1:%1/").arg(plain.serverPort()))),
        "its address is not an HTTPS address.");
    EXPECT_FALSE(plain.hasPendingConnections());
}

TEST_F(HttpsFetchTest, refusesACertificateThatNobodyVouchesFor)
{
    server.serve("/feed", "secret");
    request.authorities.clear();
    EXPECT_EQ(runFeed(), "the server could not prove its identity.");
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(HttpsFetchTest, refusesACertificateForAnotherName)
{
    server.serve("/feed", "secret");
    QUrl url = server.url("/feed");
    url.setHost(QStringLiteral("localhost"));
    EXPECT_EQ(run(url), "the server could not prove its identity.");
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(HttpsFetchTest, takesTheSizeLimitAndNoMore)
{
    request.byteLimit = 1000;
    server.serve("/feed", QByteArray(1000, 'x'));
    EXPECT_EQ(runFeed(), "finished");
    EXPECT_EQ(bytes.size(), 1000);
    server.serve("/feed", QByteArray(1001, 'x'));
    EXPECT_EQ(runFeed(), "it is larger than 1.0 kB.");
    EXPECT_LE(bytes.size(), 1000);
}

TEST_F(HttpsFetchTest, endsAtTheSizeLimitOfAnAnswerWithoutEnd)
{
    server.answer("/feed", [this](QSslSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\n\r\n");
        QObject::connect(&connection, &QSslSocket::encryptedBytesWritten, &context, [&connection] {
            connection.write(QByteArray(10'000, 'x'));
        });
        connection.write(QByteArray(10'000, 'x'));
    });
    EXPECT_EQ(runFeed(), "it is larger than 1.0 MB.");
    EXPECT_TRUE(eventually([this] { return server.openConnections() == 0; }));
}

TEST_F(HttpsFetchTest, endsWhenTheServerFallsSilent)
{
    stall();
    request.silenceLimit = 100ms;
    EXPECT_EQ(runFeed(), "the server took too long.");
}

TEST_F(HttpsFetchTest, endsWhenTheServerTrickles)
{
    QTimer drip;
    server.answer("/feed", [&](QSslSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\n\r\n");
        QObject::connect(&drip, &QTimer::timeout, &connection, [&] { connection.write("."); });
        drip.start(1ms);
    });
    // On a busy machine a short time may pass before the first byte is there.
    for (auto limit = 200ms; bytes.isEmpty() && limit < 10s; limit *= 2) {
        request.timeLimit = limit;
        ending.clear();
        EXPECT_EQ(runFeed(), "the server took too long.");
    }
    EXPECT_TRUE(bytes.startsWith("."));
}

TEST_F(HttpsFetchTest, noticesThatTheAnswerIsCutOff)
{
    server.answer("/feed", [](QSslSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\nContent-Length: 10\r\n\r\nhalf");
        connection.disconnectFromHost();
    });
    EXPECT_EQ(runFeed(), "the connection ended too early.");
}

TEST_F(HttpsFetchTest, tellsTheStatusOfOtherAnswers)
{
    EXPECT_EQ(runFeed(), "the server answered with status 404.");
    EXPECT_TRUE(bytes.isEmpty());
}

TEST_F(HttpsFetchTest, takesNoPartForTheWhole)
{
    server.answer("/feed", [](QSslSocket& connection) {
        connection.write("HTTP/1.1 206 Partial Content\r\nContent-Length: 4\r\n\r\nhalf");
    });
    EXPECT_EQ(runFeed(), "the server answered with status 206.");
    EXPECT_TRUE(bytes.isEmpty());
}

TEST_F(HttpsFetchTest, tellsThatNobodyListens)
{
    QTcpServer plain;
    ASSERT_TRUE(plain.listen(QHostAddress::LocalHost));
    const quint16 port = plain.serverPort();
    plain.close();
    EXPECT_EQ(
        run(QUrl(QStringLiteral("https://127.0.0.1:%1/").arg(port))),
        "the server refused the connection.");
}

TEST_F(HttpsFetchTest, takesThePackedBytesAsTheyAre)
{
    const QByteArray packed =
        QByteArray::fromHex("1f8b0800000000000203cb48cdc9c9070086a6103605000000");
    server.answer("/feed", [&](QSslSocket& connection) {
        connection.write(
            "HTTP/1.1 200 OK\r\nContent-Encoding: gzip\r\nContent-Length: "
            + QByteArray::number(packed.size()) + "\r\n\r\n" + packed);
    });
    EXPECT_EQ(runFeed(), "finished");
    EXPECT_EQ(bytes, packed);
    EXPECT_THAT(
        server.requests().at(0).toLower().toStdString(),
        AllOf(HasSubstr("accept-encoding: identity\r\n"), Not(HasSubstr("gzip"))));
}

TEST_F(HttpsFetchTest, saysLittleOfTheUser)
{
    server.answer("/feed", [](QSslSocket& connection) {
        connection.write("HTTP/1.1 200 OK\r\nSet-Cookie: who=me\r\nContent-Length: 0\r\n\r\n");
    });
    EXPECT_EQ(runFeed(), "finished");
    ending.clear();
    EXPECT_EQ(runFeed(), "finished");
    ASSERT_EQ(server.requests().size(), 2U);
    const std::string second = server.requests()[1].toLower().toStdString();
    EXPECT_THAT(second, AllOf(HasSubstr("user-agent: tarnwick\r\n"), Not(HasSubstr("cookie"))));
}

TEST_F(HttpsFetchTest, endsWithoutASignalWhenItIsDestroyed)
{
    stall();
    begin(server.url("/feed"));
    ASSERT_TRUE(eventually([this] { return bytes == "half"; }));
    fetch.reset();
    EXPECT_TRUE(eventually([this] { return server.openConnections() == 0; }));
    EXPECT_EQ(ending, "");
}

TEST_F(HttpsFetchTest, mayBeDestroyedByEachOfItsSignals)
{
    const auto isDestroyedBy = [this](auto signal) {
        begin(server.url("/feed"));
        QObject::connect(fetch.get(), signal, &context, [this] { fetch.reset(); });
        return eventually([this] { return !fetch; });
    };
    EXPECT_TRUE(isDestroyedBy(&HttpsFetch::failed));
    server.serve("/feed", "all");
    EXPECT_TRUE(isDestroyedBy(&HttpsFetch::received));
    EXPECT_TRUE(isDestroyedBy(&HttpsFetch::finished));
}

TEST_F(HttpsFetchTest, mayBeDestroyedAtOnce)
{
    begin(server.url("/feed"));
    fetch.reset();
    processEvents();
    EXPECT_EQ(ending, "");
}

TEST(SizeText, isExactOrShort)
{
    EXPECT_EQ(sizeText(4 << 20), QStringLiteral("4 MiB"));
    EXPECT_EQ(sizeText(1 << 30), QStringLiteral("1 GiB"));
    EXPECT_EQ(sizeText(34'200'000), QStringLiteral("34.2 MB"));
    EXPECT_EQ(sizeText(0), QStringLiteral("0 bytes"));
}

}  // namespace
