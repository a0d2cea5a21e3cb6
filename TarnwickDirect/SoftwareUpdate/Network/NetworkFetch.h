#pragma once

#include "TarnwickDirect/SoftwareUpdate/HttpsNetwork.h"

#include <QNetworkReply>
#include <QObject>
#include <QTimer>

class QNetworkAccessManager;

namespace TarnwickDirect {

/// A fetch by Qt's network module. Main thread only.
class NetworkFetch final
    : public QObject
    , public HttpsNetwork::Fetch {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(NetworkFetch)

public:
    /// Requires: `network` lives longer.
    NetworkFetch(QNetworkAccessManager& network, FetchRequest request, FetchHandlers handlers);
    ~NetworkFetch() override;

private:
    void start();
    void read();
    void end();
    void fail(const QString& reason);
    void stop();

    QNetworkAccessManager& _network;
    FetchRequest _request;
    FetchHandlers _handlers;
    std::unique_ptr<QNetworkReply> _reply;
    QTimer _beginning;
    QTimer _timeLimit;
    std::uint64_t _received = 0;
};

}  // namespace TarnwickDirect
