#include "TarnwickDirect/SoftwareUpdate/HttpsFetch.h"

#include <QLocale>
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
    // By default Qt negotiates and decodes a content encoding, but limit and signature apply to the
    // raw bytes.
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

HttpsFetch::HttpsFetch(QNetworkAccessManager& network, FetchRequest request)
    : _network(network)
    , _request(std::move(request))
{
    _timeLimit.setSingleShot(true);
    connect(&_timeLimit, &QTimer::timeout, this, [this] {
        fail(reasonOf(QNetworkReply::TimeoutError));
    });
    QMetaObject::invokeMethod(this, &HttpsFetch::start, Qt::QueuedConnection);
}

HttpsFetch::~HttpsFetch()
{
    stop();
}

void HttpsFetch::start()
{
    if (_request.url.scheme() != u"https") {
        fail(QStringLiteral("its address is not an HTTPS address"));
        return;
    }
    _reply = _network.get(networkRequest(_request));
    _reply->setReadBufferSize(bufferSize);
    connect(_reply, &QNetworkReply::readyRead, this, &HttpsFetch::read);
    connect(_reply, &QNetworkReply::finished, this, &HttpsFetch::end);
    if (_request.timeLimit) {
        _timeLimit.start(*_request.timeLimit);
    }
}

void HttpsFetch::read()
{
    const QByteArray bytes = _reply->readAll();
    // Bodies of other statuses are error pages.
    if (statusOf(*_reply) != 200 || bytes.isEmpty()) {
        return;
    }
    _received += std::uint64_t(bytes.size());
    if (_received > _request.byteLimit) {
        fail(QStringLiteral("it is larger than %1").arg(sizeText(_request.byteLimit)));
    } else {
        Q_EMIT received(bytes);
    }
}

void HttpsFetch::end()
{
    const QNetworkReply::NetworkError error = _reply->error();
    const int status = statusOf(*_reply);
    if (error != QNetworkReply::NoError && (status == 0 || status == 200 || status / 100 == 3)) {
        fail(reasonOf(error));
    } else if (status != 200) {
        fail(QStringLiteral("the server answered with status %1").arg(status));
    } else {
        stop();
        Q_EMIT finished();
    }
}

void HttpsFetch::fail(const QString& reason)
{
    stop();
    Q_EMIT failed(QStringLiteral("%1 could not be fetched: %2.").arg(_request.subject, reason));
}

void HttpsFetch::stop()
{
    _timeLimit.stop();
    if (QNetworkReply* const reply = std::exchange(_reply, nullptr)) {
        reply->disconnect(this);
        reply->abort();
        // Deferred, because the reply may be the caller.
        reply->deleteLater();
    }
}

QString sizeText(std::uint64_t bytes)
{
    constexpr std::uint64_t mebibyte = 1U << 20U;
    const QLocale locale(QLocale::English);
    return bytes % mebibyte == 0
               ? locale.formattedDataSize(qint64(bytes), 0)
               : locale.formattedDataSize(qint64(bytes), 1, QLocale::DataSizeSIFormat);
}

}  // namespace TarnwickDirect
