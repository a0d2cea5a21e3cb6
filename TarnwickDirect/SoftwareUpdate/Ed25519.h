#pragma once

#include <QStringView>

#include <array>
#include <cstdint>
#include <optional>
#include <span>

/// Signatures of updates. Safe from any thread.
namespace TarnwickDirect::Ed25519 {

using PublicKey = std::array<std::uint8_t, 32>;
using Signature = std::array<std::uint8_t, 64>;

/// Decodes exactly 32 bytes from padded Base64.
std::optional<PublicKey> publicKeyFrom(QStringView base64);

/// Decodes exactly 64 bytes from padded Base64.
std::optional<Signature> signatureFrom(QStringView base64);

/// Verifies a signature. Throws `std::runtime_error` if the system has no randomness.
bool isSignedBy(
    const PublicKey& key, const Signature& signature, std::span<const std::uint8_t> bytes);

}  // namespace TarnwickDirect::Ed25519
