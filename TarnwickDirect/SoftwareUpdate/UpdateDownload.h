#pragma once

#include "Tarnwick/Async/CancellableTask.h"
#include "TarnwickDirect/SoftwareUpdate/DownloadVerification.h"
#include "TarnwickDirect/SoftwareUpdate/HttpsFetch.h"

#include <QFile>
#include <QTemporaryDir>

namespace TarnwickDirect {

/// Downloads an offer into a private temporary folder and verifies it. Destruction cancels the
/// download and removes the folder, without a signal. Main thread only.
class UpdateDownload final : public QObject {
    Q_OBJECT

public:
    struct Settings {
        std::filesystem::path folder;  ///< The parent of the temporary folder.
        Trust trust;
        QByteArray authorities;  ///< As in `FetchRequest`.
    };

    /// Signals are emitted from the event loop. Requires: `network` outlives it.
    UpdateDownload(QNetworkAccessManager& network, UpdateOffer offer, Settings settings);

    /// Keeps the verified file after destruction. Requires: `finished` was emitted.
    void keepFile() { _folder->setAutoRemove(false); }

    /// Removes the file. Call at the end of the process; no other call may follow.
    void discardFile();

Q_SIGNALS:
    void progressed(quint64 receivedBytes);

    /// The download is complete and being verified.
    void verifying();

    /// The file is verified. It is removed on destruction, unless `keepFile` was called.
    void finished(const std::filesystem::path& file);

    /// The download has ended without a file; `message` is one English sentence.
    void failed(const QString& message);

private:
    void start();
    bool prepareFile();
    void write(const QByteArray& bytes);
    void complete();
    void fail(const QString& message);
    QCoro::Task<> verify(std::stop_token stopToken);

    QNetworkAccessManager& _network;
    UpdateOffer _offer;
    Settings _settings;
    std::unique_ptr<QTemporaryDir> _folder;
    QFile _file;
    std::unique_ptr<HttpsFetch> _fetch;
    quint64 _received = 0;
    Tarnwick::CancellableTask _verification;
};

}  // namespace TarnwickDirect
