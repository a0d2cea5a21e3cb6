#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <cstdint>
#include <optional>
#include <vector>

namespace TarnwickDirect {

/// A file that an item offers, as the feed describes it: nothing of it is checked yet.
struct AppcastEnclosure {
    QUrl url;
    std::optional<std::uint64_t> length;  ///< In bytes; absent where the feed gives no number.
    QString type;                         ///< The media type, in lower case.
    QString signature;                    ///< Base64 of an Ed25519 signature of the file's bytes.
    QString operatingSystem;              ///< In lower case; empty for any.

    bool operator==(const AppcastEnclosure&) const = default;
};

/// A version of the program, as the feed describes it. What the feed does not give is empty.
struct AppcastItem {
    QString version;       ///< What versions are compared by.
    QString shortVersion;  ///< What the user reads.
    QString minimumSystemVersion;
    QString channel;       ///< Empty for what every user is offered.
    QString releaseNotes;  ///< HTML or plain text.
    bool isCritical = false;
    QString criticalBelow;  ///< The first version for which it is not critical; empty for none.
    std::vector<AppcastEnclosure> enclosures;

    bool operator==(const AppcastItem&) const = default;
};

/// The items of a feed, in its order.
using Appcast = std::vector<AppcastItem>;

/// The size in bytes above which a feed is refused.
inline constexpr qsizetype appcastSizeLimit = qsizetype{4} << 20;

/// Reads an RSS feed of updates. Unknown elements are passed over, and of repeated ones the first
/// counts. Throws `UpdateError` when the feed is empty, too large, cut off, not XML, not RSS, or
/// contains a document type declaration, which could define entities. Safe from any thread.
Appcast readAppcast(const QByteArray& feed);

/// Whether a character cannot be seen. It could turn or break the sentences and names that it is
/// part of.
bool isUnseen(QChar character);

}  // namespace TarnwickDirect
