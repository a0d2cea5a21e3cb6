#include "TarnwickDirect/SoftwareUpdate/UpdateSource.h"

#include <QString>

namespace TarnwickDirect {

std::optional<UpdateSource> updateSource(std::string_view feed, std::string_view key)
{
    const QUrl url(QString::fromUtf8(feed.data(), qsizetype(feed.size())), QUrl::StrictMode);
    const auto publicKey =
        Ed25519::publicKeyFrom(QString::fromUtf8(key.data(), qsizetype(key.size())));
    if (url.scheme() != u"https" || url.host().isEmpty() || !publicKey) {
        return std::nullopt;
    }
    return UpdateSource{.feed = url, .key = *publicKey};
}

}  // namespace TarnwickDirect
