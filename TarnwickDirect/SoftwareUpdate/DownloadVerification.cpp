#include "TarnwickDirect/SoftwareUpdate/DownloadVerification.h"

#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"

#include <QFile>

namespace TarnwickDirect {
namespace {

/// What is wrong with the file, as the end of a sentence, or nothing.
QString problemOf(QFile& file, const UpdateOffer& offer, const Ed25519::PublicKey& key)
{
    if (!file.open(QIODevice::ReadOnly)) {
        return QStringLiteral("it could not be read");
    }
    if (file.isSequential() || std::uint64_t(file.size()) != offer.length) {
        return QStringLiteral("it has %1 bytes instead of %2").arg(file.size()).arg(offer.length);
    }
    const uchar* const bytes = file.map(0, file.size());
    if (bytes == nullptr) {
        return QStringLiteral("it could not be read");
    }
    if (!Ed25519::isSignedBy(key, offer.signature, {bytes, std::size_t(file.size())})) {
        return QStringLiteral("its signature is not valid");
    }
    return {};
}

}  // namespace

void verifyDownload(
    const std::filesystem::path& file, const UpdateOffer& offer, const Ed25519::PublicKey& key)
{
    QFile opened(file);
    const QString problem = problemOf(opened, offer, key);
    if (!problem.isEmpty()) {
        opened.remove();
        throw UpdateError(QStringLiteral("The download \"%1\" was deleted because %2.")
                              .arg(offer.fileName, problem));
    }
}

}  // namespace TarnwickDirect
