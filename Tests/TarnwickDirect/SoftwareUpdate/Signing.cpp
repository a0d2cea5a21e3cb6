#include "SoftwareUpdate/Signing.h"

#include <sodium.h>

namespace TestSupport {

SigningKey::SigningKey(std::uint8_t number)
{
    std::array<std::uint8_t, crypto_sign_SEEDBYTES> seed{};
    seed.fill(number);
    crypto_sign_seed_keypair(_publicKey.data(), _secretKey.data(), seed.data());
}

TarnwickDirect::Ed25519::Signature SigningKey::sign(const QByteArray& bytes) const
{
    TarnwickDirect::Ed25519::Signature signature{};
    crypto_sign_detached(
        signature.data(),
        nullptr,
        reinterpret_cast<const unsigned char*>(bytes.constData()),
        std::size_t(bytes.size()),
        _secretKey.data());
    return signature;
}

QString SigningKey::signature(const QByteArray& bytes) const
{
    const auto signature = sign(bytes);
    const QByteArray raw(
        reinterpret_cast<const char*>(signature.data()), qsizetype(signature.size()));
    return QString::fromLatin1(raw.toBase64());
}

}  // namespace TestSupport
