#pragma once

#include <QNetworkReply>
#include <QTimer>

#include <chrono>
#include <optional>

class QNetworkAccessManager;

namespace TarnwickDirect {

/// What is fetched, and when that is given up.
struct FetchRequest {
    QUrl url;
    QString subject;  ///< What it is, as the beginning of a sentence, such as "The update feed".
    std::uint64_t byteLimit = 0;
    std::chrono::milliseconds silenceLimit{30'000};      ///< Without a byte from the server.
    std::optional<std::chrono::milliseconds> timeLimit;  ///< For all of it.
    QByteArray authorities;  ///< Certificates in PEM; where empty, those that the system trusts.
};

/// One fetch over HTTPS, through at most five redirects that are HTTPS as well, from servers with a
/// trusted certificate. The bytes come as the server has them: nothing is unpacked, kept or sent
/// along. Only an answer with status 200 counts. Destroying the object, at any moment, ends the
/// fetch, and no signal comes. Main thread only.
class HttpsFetch final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(HttpsFetch)

public:
    /// Signals come once the event loop runs. Requires: `network` lives longer.
    HttpsFetch(QNetworkAccessManager& network, FetchRequest request);
    ~HttpsFetch() override;

Q_SIGNALS:
    /// A piece of what came; together never more than the limit.
    void received(const QByteArray& bytes);

    /// Everything has come.
    void finished();

    /// Nothing more comes; the message is one English sentence.
    void failed(const QString& message);

private:
    void start();
    void read();
    void end();
    void fail(const QString& reason);
    void stop();

    QNetworkAccessManager& _network;
    FetchRequest _request;
    QNetworkReply* _reply = nullptr;  ///< While it runs.
    QTimer _timeLimit;
    std::uint64_t _received = 0;
};

/// A number of bytes as people read it: "4 MiB" where that is exact, else such as "34.2 MB".
QString sizeText(std::uint64_t bytes);

}  // namespace TarnwickDirect
