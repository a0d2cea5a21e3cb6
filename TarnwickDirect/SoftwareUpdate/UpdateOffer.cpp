#include "TarnwickDirect/SoftwareUpdate/UpdateOffer.h"

#include "TarnwickDirect/SoftwareUpdate/DownloadName.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"

namespace TarnwickDirect {
namespace {

std::uint64_t checkedLength(const AppcastEnclosure& enclosure, const QString& version)
{
    if (!enclosure.length || *enclosure.length == 0) {
        throw UpdateError(
            QStringLiteral("The update feed does not give the size of version %1.").arg(version));
    }
    if (*enclosure.length > downloadSizeLimit) {
        throw UpdateError(
            QStringLiteral("The update feed gives version %1 a size above 1 GiB.").arg(version));
    }
    return *enclosure.length;
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
        .releaseNotesLink = item.releaseNotesLink,
        .isCritical = isCritical,
        .url = enclosure.url,
        .fileName = downloadName(enclosure.url),
        .length = checkedLength(enclosure, displayed),
        .signature = checkedSignature(enclosure, displayed)};
}

}  // namespace TarnwickDirect
