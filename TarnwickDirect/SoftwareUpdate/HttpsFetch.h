#pragma once

#include <QNetworkReply>
#include <QTimer>

#include <chrono>
#include <optional>

class QNetworkAccessManager;

namespace TarnwickDirect {

struct FetchRequest {
    QUrl url;
    QString subject;  ///< The beginning of error messages, such as "The update feed".
    std::uint64_t byteLimit = 0;
    std::chrono::milliseconds silenceLimit{30'000};      ///< Without receiving a byte.
    std::optional<std::chrono::milliseconds> timeLimit;  ///< For the whole fetch.
    QByteArray authorities;  ///< PEM certificates; if empty, the system's.
};

/// An HTTPS download with a verified certificate and at most five redirects, all to HTTPS. The body
/// is not decoded; there are no cookies and no cache. Only status 200 succeeds. Destruction cancels
/// the fetch without a signal. Main thread only.
class HttpsFetch final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(HttpsFetch)

public:
    /// Signals are emitted from the event loop. Requires: `network` outlives it.
    HttpsFetch(QNetworkAccessManager& network, FetchRequest request);
    ~HttpsFetch() override;

Q_SIGNALS:
    /// A part of the body; in total never more than the limit.
    void received(const QByteArray& bytes);

    void finished();

    /// The fetch has ended; `message` is one English sentence.
    void failed(const QString& message);

private:
    void start();
    void read();
    void end();
    void fail(const QString& reason);
    void stop();

    QNetworkAccessManager& _network;
    FetchRequest _request;
    QNetworkReply* _reply = nullptr;  ///< Only while running.
    QTimer _timeLimit;
    std::uint64_t _received = 0;
};

/// A readable size: "4 MiB" if exact, else such as "34.2 MB".
QString sizeText(std::uint64_t bytes);

}  // namespace TarnwickDirect
