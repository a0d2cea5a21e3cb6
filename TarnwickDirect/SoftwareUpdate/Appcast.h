#pragma once

#include "PullRequestKit/Date.h"

#include <QString>
#include <QUrl>

#include <cstdint>
#include <optional>
#include <vector>

namespace TarnwickDirect {

/// A file that an item offers, as the feed describes it: nothing of it is checked yet.
struct AppcastEnclosure {
    QUrl url;
    std::optional<std::uint64_t> length;  ///< In bytes; nothing where the feed tells no number.
    QString type;                         ///< The media type, in small letters.
    QString signature;                    ///< Base64 of an Ed25519 signature of the file's bytes.
    QString operatingSystem;              ///< In small letters; empty where any will do.

    bool operator==(const AppcastEnclosure&) const = default;
};

/// A version of the program, as the feed describes it. What the feed does not tell is empty.
struct AppcastItem {
    QString title;
    QString version;       ///< What versions are compared by.
    QString shortVersion;  ///< What the user reads.
    QString minimumSystemVersion;
    QString channel;       ///< Empty for what every user is offered.
    QString releaseNotes;  ///< HTML or plain text.
    QUrl releaseNotesLink;
    std::optional<PullRequestKit::Date> publicationDate;
    bool isCritical = false;
    QString criticalBelow;  ///< The first version for which it is not critical; empty for none.
    std::vector<AppcastEnclosure> enclosures;

    bool operator==(const AppcastItem&) const = default;
};

struct Appcast {
    QString title;
    std::vector<AppcastItem> items;  ///< In the feed's order.

    bool operator==(const Appcast&) const = default;
};

}  // namespace TarnwickDirect
