#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

#include <cstdint>
#include <optional>
#include <vector>

namespace TarnwickDirect {

/// A file offered by an item. Not validated.
struct AppcastEnclosure {
    QUrl url;
    std::optional<std::uint64_t> length;  ///< In bytes; nothing if not a number.
    QString type;                         ///< The media type in lower case.
    QString signature;                    ///< An Ed25519 signature of the file in Base64.
    QString operatingSystem;              ///< In lower case; empty for any.

    bool operator==(const AppcastEnclosure&) const = default;
};

/// A version of the program. Not validated; missing values are empty.
struct AppcastItem {
    QString version;       ///< Used for comparison.
    QString shortVersion;  ///< Shown to the user.
    QString minimumSystemVersion;
    QString channel;       ///< Empty for the default channel.
    QString releaseNotes;  ///< HTML or plain text.
    bool isCritical = false;
    QString criticalBelow;  ///< Critical for versions below this one; may be empty.
    std::vector<AppcastEnclosure> enclosures;

    bool operator==(const AppcastItem&) const = default;
};

/// The items in the feed's order.
using Appcast = std::vector<AppcastItem>;

/// In bytes; larger feeds are rejected.
inline constexpr qsizetype appcastSizeLimit = qsizetype{4} << 20;

/// Parses an RSS feed of updates. Unknown elements are ignored; of repeated ones the first counts.
/// Throws `UpdateError` when the feed is empty, too large, truncated, not XML or not RSS, or
/// contains a document type declaration, which could define entities. Safe from any thread.
Appcast readAppcast(const QByteArray& feed);

/// Whether the character is invisible. Such characters could reorder or break texts.
bool isUnseen(QChar character);

}  // namespace TarnwickDirect
