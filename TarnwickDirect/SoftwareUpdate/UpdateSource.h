#pragma once

#include "TarnwickDirect/SoftwareUpdate/Ed25519.h"

#include <QByteArray>
#include <QUrl>

#include <optional>
#include <string_view>

namespace TarnwickDirect {

/// The feed of the program's updates and their signing key.
struct UpdateSource {
    QUrl feed;  ///< HTTPS.
    Ed25519::PublicKey key{};
    QByteArray authorities{};  ///< As in `FetchRequest`.

    bool operator==(const UpdateSource&) const = default;
};

/// Nothing unless the URL and the Base64 key are valid. Safe from any thread.
std::optional<UpdateSource> updateSource(std::string_view feed, std::string_view key);

}  // namespace TarnwickDirect
