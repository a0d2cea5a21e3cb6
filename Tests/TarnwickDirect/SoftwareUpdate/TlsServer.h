#pragma once

#include <QSslConfiguration>
#include <QSslServer>
#include <QSslSocket>
#include <QTcpServer>
#include <QUrl>

#include <functional>
#include <map>
#include <vector>

namespace TestSupport {

/// An HTTPS server on the loopback interface that does as a test says. Its certificate is made for
/// the run of the test program and is valid for 127.0.0.1 alone.
class TlsServer final : public QObject {
    Q_OBJECT

public:
    /// Writes the whole answer, headers included, to the connection.
    using Answer = std::function<void(QSslSocket& connection)>;

    TlsServer();

    QUrl url(const QString& path) const;

    QUrl url(const char* path) const { return url(QString::fromLatin1(path)); }

    /// This server's certificate, in PEM.
    static QByteArray authorities();

    void answer(const char* path, Answer answer);

    /// Answers with status 200, the length and these bytes.
    void serve(const char* path, const QByteArray& body);

    void redirect(const char* path, const QUrl& target);

    /// The requests so far, each with its headers.
    const std::vector<QByteArray>& requests() const { return _requests; }

    qsizetype openConnections() const { return _openConnections; }

private:
    void accept();
    void read(QSslSocket& connection);

    QSslServer _server;
    std::map<QByteArray, Answer> _answers;
    std::vector<QByteArray> _requests;
    qsizetype _openConnections = 0;
};

/// Status 200 with the length of the body.
QByteArray okay(const QByteArray& body);

}  // namespace TestSupport
