#include "TarnwickDirect/SoftwareUpdate/UpdateDownload.h"

#include "Tarnwick/Async/Worker.h"
#include "TarnwickDirect/SoftwareUpdate/DownloadVerification.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"

#include <QDir>

namespace TarnwickDirect {
namespace {

/// The message of what is wrong with the file, or an empty text.
QString verificationProblem(
    const std::filesystem::path& file, const UpdateOffer& offer, const Ed25519::PublicKey& key)
{
    try {
        verifyDownload(file, offer, key);
        return {};
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    }
}

}  // namespace

UpdateDownload::UpdateDownload(HttpsNetwork& network, UpdateOffer offer, Settings settings)
    : _network(network)
    , _offer(std::move(offer))
    , _settings(std::move(settings))
{
    _beginning.setSingleShot(true);
    connect(&_beginning, &QTimer::timeout, this, &UpdateDownload::start);
    _beginning.start(0);
}

void UpdateDownload::start()
{
    if (prepareFile()) {
        fetch();
    }
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
    // Unbuffered, so that a full disk is noticed at the write that it fails.
    if (!_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        fail(QStringLiteral("The update could not be saved: %1.").arg(_file.errorString()));
        return false;
    }
    return true;
}

void UpdateDownload::fetch()
{
    const FetchRequest request{
        .url = _offer.url,
        .subject = QStringLiteral("\"%1\"").arg(_offer.fileName),
        .byteLimit = _offer.length,
        .silenceLimit = _settings.silenceLimit,
        .timeLimit = std::nullopt,
        .authorities = _settings.authorities};
    _fetch = std::make_unique<HttpsFetch>(_network, request);
    connect(_fetch.get(), &HttpsFetch::received, this, &UpdateDownload::write);
    connect(_fetch.get(), &HttpsFetch::finished, this, &UpdateDownload::complete);
    connect(_fetch.get(), &HttpsFetch::failed, this, &UpdateDownload::fail);
}

void UpdateDownload::write(const QByteArray& bytes)
{
    qint64 written = 0;
    while (written < bytes.size()) {
        const qint64 count = _file.write(bytes.constData() + written, bytes.size() - written);
        if (count <= 0) {
            failWriting();
            return;
        }
        written += count;
    }
    _received += quint64(bytes.size());
    Q_EMIT progressed(_received);
}

void UpdateDownload::failWriting()
{
    fail(
        QStringLiteral("\"%1\" could not be saved: %2.").arg(_offer.fileName, _file.errorString()));
}

void UpdateDownload::complete()
{
    _file.close();
    if (_file.error() != QFileDevice::NoError) {
        failWriting();
        return;
    }
    _verification.start([this](std::stop_token stopToken) { return verify(stopToken); });
}

QCoro::Task<> UpdateDownload::verify(std::stop_token stopToken)
{
    const std::filesystem::path file = QFile::encodeName(_file.fileName()).toStdString();
    const auto work = [file, offer = _offer, key = _settings.key] {
        return verificationProblem(file, offer, key);
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
        // It may be the one that is calling.
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
