#pragma once

#include <QStringView>

#include <array>
#include <cstdint>
#include <optional>
#include <span>

/// Signatures of updates. Everything here is safe from any thread.
namespace TarnwickDirect::Ed25519 {

using PublicKey = std::array<std::uint8_t, 32>;
using Signature = std::array<std::uint8_t, 64>;

/// Reads exactly 32 bytes from their Base64 text, padding included.
std::optional<PublicKey> publicKeyFrom(QStringView base64);

/// Reads exactly 64 bytes from their Base64 text, padding included.
std::optional<Signature> signatureFrom(QStringView base64);

/// Whether the owner of the key has signed these bytes. Throws `std::runtime_error` on a system
/// that has no randomness, where the library cannot start.
bool isSignedBy(
    const PublicKey& key, const Signature& signature, std::span<const std::uint8_t> bytes);

}  // namespace TarnwickDirect::Ed25519
