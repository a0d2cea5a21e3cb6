#include "TarnwickDirect/SoftwareUpdate/Ed25519.h"

#include <QByteArray>

#include <stdexcept>

#include <sodium.h>

namespace TarnwickDirect::Ed25519 {
namespace {

template<typename Bytes>
std::optional<Bytes> bytesFrom(QStringView base64)
{
    Bytes bytes{};
    const QByteArray text = base64.toUtf8();
    std::size_t length = 0;
    const char* end = nullptr;
    const int result = sodium_base642bin(
        bytes.data(),
        bytes.size(),
        text.constData(),
        std::size_t(text.size()),
        nullptr,
        &length,
        &end,
        sodium_base64_VARIANT_ORIGINAL);
    const bool isWhole = end == text.constData() + text.size() && length == bytes.size();
    return result == 0 && isWhole ? std::optional(bytes) : std::nullopt;
}

}  // namespace

std::optional<PublicKey> publicKeyFrom(QStringView base64)
{
    return bytesFrom<PublicKey>(base64);
}

std::optional<Signature> signatureFrom(QStringView base64)
{
    return bytesFrom<Signature>(base64);
}

bool isSignedBy(
    const PublicKey& key, const Signature& signature, std::span<const std::uint8_t> bytes)
{
    static_assert(sizeof(PublicKey) == crypto_sign_PUBLICKEYBYTES);
    static_assert(sizeof(Signature) == crypto_sign_BYTES);
    if (sodium_init() < 0) {
        throw std::runtime_error("The signature library could not be initialized.");
    }
    return crypto_sign_verify_detached(signature.data(), bytes.data(), bytes.size(), key.data())
           == 0;
}

}  // namespace TarnwickDirect::Ed25519
