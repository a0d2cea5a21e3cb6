#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace TarnwickDirect {

/// What is fetched, and when that is given up.
struct FetchRequest {
    QUrl url;
    QString subject;  ///< What it is, as the beginning of a sentence, such as "The update feed".
    std::uint64_t byteLimit = 0;
    std::chrono::milliseconds silenceLimit{30'000};      ///< Without a byte from the server.
    std::optional<std::chrono::milliseconds> timeLimit;  ///< For all of it.
    QByteArray authorities;  ///< Certificates in PEM; where empty, those that the system trusts.
};

/// Who hears of a fetch. All are there. After `finished` or `failed` comes nothing more.
struct FetchHandlers {
    std::function<void(const QByteArray& bytes)> received;
    std::function<void()> finished;
    std::function<void(const QString& message)> failed;  ///< With one English sentence.
};

/// Fetches over HTTPS, through at most five redirects that are HTTPS as well, from servers with a
/// certificate that is trusted. The bytes come as the server has them: nothing is unpacked, kept or
/// sent along. Only an answer with status 200 counts. Main thread only.
///
/// What it stands on takes several libraries, so it lies in one of its own that is loaded when it
/// is first needed.
class HttpsNetwork {
public:
    /// The end of the object, at any moment, ends the fetch, and nothing is heard any more.
    class Fetch {
    public:
        Fetch() = default;
        Fetch(const Fetch&) = delete;
        Fetch& operator=(const Fetch&) = delete;
        virtual ~Fetch() = default;
    };

    HttpsNetwork() = default;
    HttpsNetwork(const HttpsNetwork&) = delete;
    HttpsNetwork& operator=(const HttpsNetwork&) = delete;
    virtual ~HttpsNetwork() = default;

    /// The handlers are called once the event loop runs. The network lives longer than the fetch.
    virtual std::unique_ptr<Fetch> fetch(FetchRequest request, FetchHandlers handlers) = 0;
};

/// Makes a network; throws `UpdateError` where there is none.
using MakeHttpsNetwork = std::function<std::unique_ptr<HttpsNetwork>()>;

}  // namespace TarnwickDirect
