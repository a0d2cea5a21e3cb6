#pragma once

#include "TarnwickDirect/SoftwareUpdate/Ed25519.h"

#include <QByteArray>
#include <QUrl>

#include <optional>
#include <string_view>

namespace TarnwickDirect {

/// Where the program's updates come from, and who signs them.
struct UpdateSource {
    QUrl feed;  ///< HTTPS.
    Ed25519::PublicKey key{};
    QByteArray authorities{};  ///< As in `FetchRequest`.

    bool operator==(const UpdateSource&) const = default;
};

/// The source that an address and a key in Base64 give, or nothing unless both are right. Safe from
/// any thread.
std::optional<UpdateSource> updateSource(std::string_view feed, std::string_view key);

}  // namespace TarnwickDirect
