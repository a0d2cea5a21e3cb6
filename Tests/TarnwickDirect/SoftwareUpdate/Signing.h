#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdateOffer.h"

#include <QByteArray>
#include <QString>

namespace TestSupport {

/// A pair of keys that is the same in every run.
class SigningKey {
public:
    /// Different numbers give different pairs.
    explicit SigningKey(std::uint8_t number = 1);

    const TarnwickDirect::Ed25519::PublicKey& publicKey() const { return _publicKey; }

    TarnwickDirect::Ed25519::Signature sign(const QByteArray& bytes) const;

    /// The same in Base64.
    QString signature(const QByteArray& bytes) const;

private:
    TarnwickDirect::Ed25519::PublicKey _publicKey{};
    std::array<std::uint8_t, 64> _secretKey{};
};

}  // namespace TestSupport
