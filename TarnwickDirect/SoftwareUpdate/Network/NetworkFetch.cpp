#include "TarnwickDirect/SoftwareUpdate/Network/NetworkFetch.h"

#include "TarnwickDirect/SoftwareUpdate/SizeText.h"

#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QSslCertificate>
#include <QSslConfiguration>

#include <utility>

namespace TarnwickDirect {
namespace {

constexpr int redirectLimit = 5;
constexpr qint64 bufferSize = qint64{256} * 1024;

QSslConfiguration trustIn(const QByteArray& authorities)
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    if (!authorities.isEmpty()) {
        configuration.setCaCertificates(QSslCertificate::fromData(authorities));
    }
    return configuration;
}

QNetworkRequest networkRequest(const FetchRequest& request)
{
    QNetworkRequest result(request.url);
    result.setSslConfiguration(trustIn(request.authorities));
    result.setTransferTimeout(int(request.silenceLimit.count()));
    result.setMaximumRedirectsAllowed(redirectLimit);
    result.setAttribute(
        QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    result.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    result.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    result.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    for (const auto attribute :
         {QNetworkRequest::CookieLoadControlAttribute,
          QNetworkRequest::CookieSaveControlAttribute,
          QNetworkRequest::AuthenticationReuseAttribute}) {
        result.setAttribute(attribute, QNetworkRequest::Manual);
    }
    // With an encoding of its own choice, Qt would unpack what comes: the limit and the signature
    // are of the bytes as they are.
    result.setRawHeader("Accept-Encoding", "identity");
    result.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Tarnwick"));
    return result;
}

int statusOf(const QNetworkReply& reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

QString reasonOf(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::ConnectionRefusedError:
        return QStringLiteral("the server refused the connection");
    case QNetworkReply::RemoteHostClosedError:
        return QStringLiteral("the connection ended too early");
    case QNetworkReply::HostNotFoundError:
        return QStringLiteral("the server was not found");
    case QNetworkReply::TimeoutError:
    case QNetworkReply::OperationCanceledError:
        return QStringLiteral("the server took too long");
    case QNetworkReply::SslHandshakeFailedError:
        return QStringLiteral("the server could not prove its identity");
    case QNetworkReply::InsecureRedirectError:
    case QNetworkReply::ProtocolUnknownError:
        return QStringLiteral("the server redirected to an address that is not HTTPS");
    case QNetworkReply::TooManyRedirectsError:
        return QStringLiteral("the server redirected too often");
    default:
        return QStringLiteral("the network failed");
    }
}

}  // namespace

NetworkFetch::NetworkFetch(
    QNetworkAccessManager& network, FetchRequest request, FetchHandlers handlers)
    : _network(network)
    , _request(std::move(request))
    , _handlers(std::move(handlers))
{
    _timeLimit.setSingleShot(true);
    connect(&_timeLimit, &QTimer::timeout, this, [this] {
        fail(reasonOf(QNetworkReply::TimeoutError));
    });
    _beginning.setSingleShot(true);
    connect(&_beginning, &QTimer::timeout, this, &NetworkFetch::start);
    _beginning.start(0);
}

NetworkFetch::~NetworkFetch()
{
    stop();
}

void NetworkFetch::start()
{
    if (_request.url.scheme() != u"https") {
        fail(QStringLiteral("its address is not an HTTPS address"));
        return;
    }
    _reply.reset(_network.get(networkRequest(_request)));
    _reply->setReadBufferSize(bufferSize);
    connect(_reply.get(), &QNetworkReply::readyRead, this, &NetworkFetch::read);
    connect(_reply.get(), &QNetworkReply::finished, this, &NetworkFetch::end);
    if (_request.timeLimit) {
        _timeLimit.start(*_request.timeLimit);
    }
}

void NetworkFetch::read()
{
    // What comes with another status is a page for people.
    if (statusOf(*_reply) != 200) {
        _reply->readAll();
        return;
    }
    const QByteArray bytes = _reply->readAll();
    _received += std::uint64_t(bytes.size());
    if (_received > _request.byteLimit) {
        fail(QStringLiteral("it is larger than %1").arg(sizeText(_request.byteLimit)));
    } else if (!bytes.isEmpty()) {
        _handlers.received(bytes);
    }
}

void NetworkFetch::end()
{
    const QNetworkReply::NetworkError error = _reply->error();
    const int status = statusOf(*_reply);
    if (error != QNetworkReply::NoError && (status == 0 || status == 200 || status / 100 == 3)) {
        fail(reasonOf(error));
    } else if (status != 200) {
        fail(QStringLiteral("the server answered with status %1").arg(status));
    } else {
        stop();
        _handlers.finished();
    }
}

void NetworkFetch::fail(const QString& reason)
{
    stop();
    _handlers.failed(QStringLiteral("%1 could not be fetched: %2.").arg(_request.subject, reason));
}

void NetworkFetch::stop()
{
    _timeLimit.stop();
    if (_reply) {
        _reply->disconnect(this);
        _reply->abort();
        // It may be the one that is calling.
        _reply.release()->deleteLater();
    }
}

}  // namespace TarnwickDirect
