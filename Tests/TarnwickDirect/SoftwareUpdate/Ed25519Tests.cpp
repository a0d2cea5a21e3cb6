#include "TarnwickDirect/SoftwareUpdate/Ed25519.h"

#include <QByteArray>
#include <QString>

#include <gmock/gmock.h>

namespace {

using namespace TarnwickDirect;
using testing::Eq;

// The first and third test vectors of RFC 8032.
const QByteArray keyOfNothing = "d75a980182b10ab7d54bfed3c964073a0ee172f3daa62325af021a68f707511a";
const QByteArray signatureOfNothing =
    "e5564300c360ac729086e2cc806e828a84877f1eb8e5d974d873e065224901555fb8821590a33bacc61e39701cf9b4"
    "6bd25bf5f0595bbe24655141438e7a100b";
const QByteArray keyOfTwoBytes = "fc51cd8e6218a1a38da47ed00230f0580816ed13ba3303ac5deb911548908025";
const QByteArray signatureOfTwoBytes =
    "6291d657deec24024827e69c3abe01a30ce548a284743a445e3680d7db5ac3ac18ff9b538d16f290ae67f760984dc6"
    "594a7c15e9716ed28dc027beceea1ec40a";

QString base64(const QByteArray& hexadecimal)
{
    return QString::fromLatin1(QByteArray::fromHex(hexadecimal).toBase64());
}

bool isSigned(
    const QByteArray& key, const QByteArray& signature, std::span<const std::uint8_t> bytes)
{
    return Ed25519::isSignedBy(
        Ed25519::publicKeyFrom(base64(key)).value(),
        Ed25519::signatureFrom(base64(signature)).value(),
        bytes);
}

TEST(Ed25519, acceptsTheSignaturesOfTheStandard)
{
    const std::uint8_t bytes[] = {0xaf, 0x82};
    EXPECT_TRUE(isSigned(keyOfNothing, signatureOfNothing, {}));
    EXPECT_TRUE(isSigned(keyOfTwoBytes, signatureOfTwoBytes, bytes));
}

TEST(Ed25519, refusesOtherBytesKeysAndSignatures)
{
    const std::uint8_t bytes[] = {0xaf, 0x82};
    const std::uint8_t otherBytes[] = {0xaf, 0x83};
    EXPECT_FALSE(isSigned(keyOfTwoBytes, signatureOfTwoBytes, otherBytes));
    EXPECT_FALSE(isSigned(keyOfTwoBytes, signatureOfTwoBytes, std::span(bytes).first(1)));
    EXPECT_FALSE(isSigned(keyOfTwoBytes, signatureOfTwoBytes, {}));
    EXPECT_FALSE(isSigned(keyOfNothing, signatureOfTwoBytes, bytes));
    EXPECT_FALSE(isSigned(keyOfTwoBytes, signatureOfNothing, bytes));
}

TEST(Ed25519, readsOnlyBase64OfTheRightLength)
{
    const QString key = base64(keyOfNothing);
    EXPECT_NE(Ed25519::publicKeyFrom(key), std::nullopt);
    EXPECT_THAT(Ed25519::publicKeyFrom(u""), Eq(std::nullopt));
    EXPECT_THAT(Ed25519::publicKeyFrom(key.chopped(1)), Eq(std::nullopt));
    EXPECT_THAT(Ed25519::publicKeyFrom(key + u'='), Eq(std::nullopt));
    EXPECT_THAT(Ed25519::publicKeyFrom(key + u' '), Eq(std::nullopt));
    EXPECT_THAT(Ed25519::publicKeyFrom(base64(keyOfNothing + "00")), Eq(std::nullopt));
    EXPECT_THAT(Ed25519::publicKeyFrom(base64(keyOfNothing.chopped(2))), Eq(std::nullopt));
    EXPECT_THAT(Ed25519::signatureFrom(key), Eq(std::nullopt));
    EXPECT_THAT(Ed25519::signatureFrom(u"no Base64 at all"), Eq(std::nullopt));
}

}  // namespace
