#include "SoftwareUpdate/TlsServer.h"

#include <QFile>
#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>
#include <QTemporaryDir>

#include <stdexcept>

namespace TestSupport {
namespace {

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw std::runtime_error("cannot read " + path.toStdString());
    }
    return file.readAll();
}

struct Identity {
    QSslCertificate certificate;
    QSslKey key;
};

Identity makeIdentity()
{
    const QTemporaryDir folder;
    const QString certificate = folder.filePath(QStringLiteral("certificate.pem"));
    const QString key = folder.filePath(QStringLiteral("key.pem"));
    const QString arguments = QStringLiteral(
        "req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2 -subj /CN=Tests "
        "-addext subjectAltName=IP:127.0.0.1");
    QProcess openssl;
    openssl.start(
        QStringLiteral("openssl"),
        arguments.split(u' ')
            + QStringList{QStringLiteral("-keyout"), key, QStringLiteral("-out"), certificate});
    if (!openssl.waitForFinished() || openssl.exitCode() != 0) {
        throw std::runtime_error("openssl makes no certificate");
    }
    return {
        .certificate = QSslCertificate(contentsOf(certificate)),
        .key = QSslKey(contentsOf(key), QSsl::Ec)};
}

const Identity& identity()
{
    static const Identity made = makeIdentity();
    return made;
}

}  // namespace

QByteArray okay(const QByteArray& body)
{
    return "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n\r\n"
           + body;
}

TlsServer::TlsServer()
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setLocalCertificate(identity().certificate);
    configuration.setPrivateKey(identity().key);
    _server.setSslConfiguration(configuration);
    connect(&_server, &QTcpServer::pendingConnectionAvailable, this, &TlsServer::accept);
    if (!_server.listen(QHostAddress::LocalHost)) {
        throw std::runtime_error("no server can be started");
    }
}

QUrl TlsServer::url(const QString& path) const
{
    return QUrl(QStringLiteral("https://127.0.0.1:%1%2").arg(_server.serverPort()).arg(path));
}

QByteArray TlsServer::authorities()
{
    return identity().certificate.toPem();
}

void TlsServer::answer(const char* path, Answer answer)
{
    _answers.insert_or_assign(path, std::move(answer));
}

void TlsServer::serve(const char* path, const QByteArray& body)
{
    answer(path, [body](QSslSocket& connection) { connection.write(okay(body)); });
}

void TlsServer::redirect(const char* path, const QUrl& target)
{
    answer(path, [target](QSslSocket& connection) {
        connection.write(
            "HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + target.toEncoded()
            + "\r\n\r\n");
    });
}

void TlsServer::accept()
{
    while (auto* const connection = qobject_cast<QSslSocket*>(_server.nextPendingConnection())) {
        ++_openConnections;
        connect(connection, &QSslSocket::disconnected, this, [this, connection] {
            --_openConnections;
            connection->deleteLater();
        });
        connect(
            connection, &QSslSocket::readyRead, this, [this, connection] { read(*connection); });
        read(*connection);
    }
}

void TlsServer::read(QSslSocket& connection)
{
    if (!connection.peek(64 * 1024).contains("\r\n\r\n")) {
        return;
    }
    const QByteArray request = connection.readAll();
    _requests.push_back(request);
    const auto answer = _answers.find(request.split(' ').value(1));
    if (answer != _answers.end()) {
        answer->second(connection);
    } else {
        connection.write("HTTP/1.1 404 Not Found\r\nContent-Length: 9\r\n\r\nNot found");
    }
}

}  // namespace TestSupport
