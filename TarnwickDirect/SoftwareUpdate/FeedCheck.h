#pragma once

#include "Tarnwick/Async/CancellableTask.h"
#include "TarnwickDirect/SoftwareUpdate/HttpsFetch.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateChoice.h"

namespace TarnwickDirect {

/// One look at the feed. The end of the object, at any moment, ends it, and no signal comes. Main
/// thread only; the feed is read on a worker thread.
class FeedCheck final : public QObject {
    Q_OBJECT

public:
    struct Settings {
        QUrl feed;
        UpdateNeeds needs;
        QByteArray authorities;  ///< As in `FetchRequest`.
        std::chrono::milliseconds timeLimit{60'000};
    };

    /// Signals come once the event loop runs. Requires: `network` lives longer.
    FeedCheck(HttpsNetwork& network, Settings settings);

Q_SIGNALS:
    void found(const UpdateOffer& offer);
    void foundNothing(const NoUpdate& reason);

    /// The message is one English sentence.
    void failed(const QString& message);

private:
    QCoro::Task<> choose(std::stop_token stopToken);

    Settings _settings;
    HttpsFetch _fetch;
    QByteArray _feed;
    Tarnwick::CancellableTask _choice;
};

}  // namespace TarnwickDirect
