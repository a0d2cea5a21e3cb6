#pragma once

#include "Tarnwick/Async/CancellableTask.h"
#include "TarnwickDirect/SoftwareUpdate/HttpsFetch.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateOffer.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <filesystem>

namespace TarnwickDirect {

/// Downloads what was offered into a folder of its own, which only the user can enter, and verifies
/// it there. The end of the object, at any moment, ends the download and removes the folder, and no
/// signal comes. Main thread only.
class UpdateDownload final : public QObject {
    Q_OBJECT

public:
    struct Settings {
        std::filesystem::path
            folder;  ///< In which the download's own comes to be; made if missing.
        Ed25519::PublicKey key{};
        QByteArray authorities;                          ///< As in `FetchRequest`.
        std::chrono::milliseconds silenceLimit{30'000};  ///< Without a byte from the server.
    };

    /// Signals come once the event loop runs. Requires: `network` lives longer.
    UpdateDownload(HttpsNetwork& network, UpdateOffer offer, Settings settings);

    const UpdateOffer& offer() const { return _offer; }

    /// Leaves the verified file where it is at the end of the object. Requires: it has finished.
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
    void fetch();
    void write(const QByteArray& bytes);
    void complete();
    void failWriting();
    void fail(const QString& message);
    QCoro::Task<> verify(std::stop_token stopToken);

    HttpsNetwork& _network;
    UpdateOffer _offer;
    Settings _settings;
    QTimer _beginning;
    std::unique_ptr<QTemporaryDir> _folder;
    QFile _file;
    std::unique_ptr<HttpsFetch> _fetch;
    quint64 _received = 0;
    Tarnwick::CancellableTask _verification;
};

}  // namespace TarnwickDirect
