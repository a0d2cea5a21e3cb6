#pragma once

#include "TarnwickDirect/SoftwareUpdate/HttpsNetwork.h"

#include <QObject>

namespace TarnwickDirect {

/// One fetch from a network, as an object with signals. The end of the object, at any moment, ends
/// the fetch, and no signal comes. Main thread only.
class HttpsFetch final : public QObject {
    Q_OBJECT

public:
    /// Signals come once the event loop runs. Requires: `network` lives longer.
    HttpsFetch(HttpsNetwork& network, FetchRequest request);

Q_SIGNALS:
    /// A piece of what came; together never more than the limit.
    void received(const QByteArray& bytes);

    /// Everything has come.
    void finished();

    /// Nothing more comes; the message is one English sentence.
    void failed(const QString& message);

private:
    std::unique_ptr<HttpsNetwork::Fetch> _fetch;
};

}  // namespace TarnwickDirect
