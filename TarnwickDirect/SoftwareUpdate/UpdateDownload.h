#pragma once

#include "Tarnwick/Async/CancellableTask.h"
#include "TarnwickDirect/SoftwareUpdate/DownloadVerification.h"
#include "TarnwickDirect/SoftwareUpdate/HttpsFetch.h"

#include <QFile>
#include <QTemporaryDir>

namespace TarnwickDirect {

/// Downloads what was offered into a folder of its own, which only the user can enter, and verifies
/// it there. Destroying the object, at any moment, ends the download and removes the folder, and no
/// signal comes. Main thread only.
class UpdateDownload final : public QObject {
    Q_OBJECT

public:
    struct Settings {
        std::filesystem::path folder;  ///< Where the download's own is made.
        Trust trust;
        QByteArray authorities;  ///< As in `FetchRequest`.
    };

    /// Signals come once the event loop runs. Requires: `network` lives longer.
    UpdateDownload(QNetworkAccessManager& network, UpdateOffer offer, Settings settings);

    /// Has the verified file outlive the object. Requires: it has finished.
    void keepFile() { _folder->setAutoRemove(false); }

    /// For the end of the process: removes the file. No other call may follow.
    void discardFile();

Q_SIGNALS:
    void progressed(quint64 receivedBytes);

    /// Everything has come and is being verified.
    void verifying();

    /// The file is what was offered. It lives as long as this object.
    void finished(const std::filesystem::path& file);

    /// There is no file, and nothing more comes; the message is one English sentence.
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
