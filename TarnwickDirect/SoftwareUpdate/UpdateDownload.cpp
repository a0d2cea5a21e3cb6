#include "TarnwickDirect/SoftwareUpdate/UpdateDownload.h"

#include "Tarnwick/Async/Worker.h"

#include <QDir>

namespace TarnwickDirect {
namespace {

/// The error of the verification, or an empty text.
QString verificationProblem(
    const std::filesystem::path& file,
    const UpdateOffer& offer,
    const Trust& trust,
    const std::stop_token& stopToken)
{
    try {
        const auto run = [&](const QString& program, const QStringList& arguments) {
            return outputOf(program, arguments, stopToken);
        };
        verifyDownload(file, offer, trust, run);
        return {};
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    }
}

}  // namespace

UpdateDownload::UpdateDownload(QNetworkAccessManager& network, UpdateOffer offer, Settings settings)
    : _network(network)
    , _offer(std::move(offer))
    , _settings(std::move(settings))
{
    QMetaObject::invokeMethod(this, &UpdateDownload::start, Qt::QueuedConnection);
}

void UpdateDownload::start()
{
    if (!prepareFile()) {
        return;
    }
    const FetchRequest request{
        .url = _offer.url,
        .subject = QStringLiteral("\"%1\"").arg(_offer.fileName),
        .byteLimit = _offer.length,
        .timeLimit = std::nullopt,
        .authorities = _settings.authorities};
    _fetch = std::make_unique<HttpsFetch>(_network, request);
    connect(_fetch.get(), &HttpsFetch::received, this, &UpdateDownload::write);
    connect(_fetch.get(), &HttpsFetch::finished, this, &UpdateDownload::complete);
    connect(_fetch.get(), &HttpsFetch::failed, this, &UpdateDownload::fail);
}

bool UpdateDownload::prepareFile()
{
    const QString parent = QFile::decodeName(_settings.folder.c_str());
    QDir().mkpath(parent);
    _folder = std::make_unique<QTemporaryDir>(parent + QStringLiteral("/XXXXXX"));
    if (!_folder->isValid()) {
        fail(QStringLiteral("The update could not be saved: %1.").arg(_folder->errorString()));
        return false;
    }
    _file.setFileName(_folder->filePath(_offer.fileName));
    // Unbuffered, so that a full disk is reported by the failing write.
    if (!_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        fail(QStringLiteral("The update could not be saved: %1.").arg(_file.errorString()));
        return false;
    }
    return true;
}

void UpdateDownload::write(const QByteArray& bytes)
{
    // A write to a full disk may succeed in part.
    for (qint64 written = 0; written < bytes.size();) {
        const qint64 count = _file.write(bytes.constData() + written, bytes.size() - written);
        if (count <= 0) {
            fail(QStringLiteral("\"%1\" could not be saved: %2.")
                     .arg(_offer.fileName, _file.errorString()));
            return;
        }
        written += count;
    }
    _received += quint64(bytes.size());
    Q_EMIT progressed(_received);
}

void UpdateDownload::complete()
{
    _file.close();
    _verification.start([this](std::stop_token stopToken) { return verify(stopToken); });
}

QCoro::Task<> UpdateDownload::verify(std::stop_token stopToken)
{
    const std::filesystem::path file = QFile::encodeName(_file.fileName()).toStdString();
    const auto work = [file, offer = _offer, trust = _settings.trust, stopToken] {
        return verificationProblem(file, offer, trust, stopToken);
    };
    Q_EMIT verifying();
    if (stopToken.stop_requested()) {
        co_return;
    }
    auto verification = Tarnwick::onWorker(work);
    const QString problem = co_await verification;
    if (stopToken.stop_requested()) {
        co_return;
    }
    if (!problem.isEmpty()) {
        fail(problem);
    } else {
        Q_EMIT finished(file);
    }
}

void UpdateDownload::fail(const QString& message)
{
    if (_fetch) {
        // Deferred, because the fetch may be the caller.
        _fetch->disconnect(this);
        _fetch.release()->deleteLater();
    }
    discardFile();
    Q_EMIT failed(message);
}

void UpdateDownload::discardFile()
{
    _file.close();
    _folder.reset();
}

}  // namespace TarnwickDirect
