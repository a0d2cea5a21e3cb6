#include "TarnwickDirect/SoftwareUpdate/UpdateOffer.h"

#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"

#include <algorithm>

namespace TarnwickDirect {
namespace {

constexpr qsizetype nameLengthLimit = 200;

bool isForbidden(QChar character)
{
    return isUnseen(character) || character.isSurrogate() || character == u'/' || character == u'\\'
           || character == QChar::ReplacementCharacter;
}

std::uint64_t checkedLength(const AppcastEnclosure& enclosure, const QString& version)
{
    const std::uint64_t length = enclosure.length.value_or(0);
    if (length == 0) {
        throw UpdateError(
            QStringLiteral("The update feed does not give the size of version %1.").arg(version));
    }
    if (length > downloadSizeLimit) {
        throw UpdateError(
            QStringLiteral("The update feed gives version %1 a size above 1 GiB.").arg(version));
    }
    return length;
}

Ed25519::Signature checkedSignature(const AppcastEnclosure& enclosure, const QString& version)
{
    if (enclosure.signature.isEmpty()) {
        throw UpdateError(
            QStringLiteral("The update feed has no signature for version %1.").arg(version));
    }
    const auto signature = Ed25519::signatureFrom(enclosure.signature);
    if (!signature) {
        throw UpdateError(
            QStringLiteral(
                "The update feed's signature for version %1 is not an Ed25519 signature.")
                .arg(version));
    }
    return *signature;
}

}  // namespace

UpdateOffer makeOffer(const AppcastItem& item, const AppcastEnclosure& enclosure, bool isCritical)
{
    const QString& displayed = item.shortVersion.isEmpty() ? item.version : item.shortVersion;
    if (enclosure.url.scheme() != u"https" || enclosure.url.host().isEmpty()) {
        throw UpdateError(
            QStringLiteral("The address of version %1 is not an HTTPS address.").arg(displayed));
    }
    return {
        .version = item.version,
        .displayedVersion = displayed,
        .releaseNotes = item.releaseNotes,
        .isCritical = isCritical,
        .url = enclosure.url,
        .fileName = downloadName(enclosure.url),
        .length = checkedLength(enclosure, displayed),
        .signature = checkedSignature(enclosure, displayed)};
}

QString downloadName(const QUrl& url)
{
    const QString path = url.path(QUrl::FullyEncoded);
    const QByteArray encoded = path.sliced(path.lastIndexOf(u'/') + 1).toLatin1();
    const QByteArray bytes = QByteArray::fromPercentEncoding(encoded);
    const QString name = QString::fromUtf8(bytes);
    if (name.isEmpty()) {
        throw UpdateError(QStringLiteral("The update's address has no file name."));
    }
    if (name.startsWith(u'.') || std::ranges::any_of(name, isForbidden)) {
        throw UpdateError(QStringLiteral("The update's file name \"%1\" is not a plain name.")
                              .arg(QString::fromLatin1(encoded)));
    }
    if (bytes.size() > nameLengthLimit) {
        throw UpdateError(QStringLiteral("The update's file name is too long."));
    }
    return name;
}

}  // namespace TarnwickDirect
