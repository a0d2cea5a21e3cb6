#include "TarnwickDirect/SoftwareUpdate/DownloadVerification.h"

#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"
#include "TarnwickDirect/SoftwareUpdate/VersionComparison.h"

#include <QFile>

namespace TarnwickDirect {
namespace {

/// Checks length and signature. Returns the error as the end of a sentence, or nothing.
QString byteProblem(QFile& file, const UpdateOffer& offer, const Ed25519::PublicKey& key)
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

/// Checks the package's own control data: the signature covers only the file, so an old release
/// could be offered under a new version.
QString packageProblem(
    const QFile& file, const UpdateOffer& offer, const QString& package, const RunCommand& run)
{
    const QStringList described = run(QStringLiteral("/usr/bin/dpkg-deb"),
                                      {QStringLiteral("--show"),
                                       QStringLiteral("--showformat=${Package} ${Version}"),
                                       file.fileName()})
                                      .split(u' ');
    if (described.size() != 2) {
        return QStringLiteral("dpkg-deb cannot read it");
    }
    if (described[0] != package) {
        return QStringLiteral("it is the package %1, not %2").arg(described[0], package);
    }
    if (compareVersions(upstreamVersion(described[1]), offer.version) != 0) {
        return QStringLiteral("it is version %1, not %2").arg(described[1], offer.version);
    }
    return {};
}

}  // namespace

void verifyDownload(
    const std::filesystem::path& file,
    const UpdateOffer& offer,
    const Trust& trust,
    const RunCommand& run)
{
    QFile opened(file);
    QString problem = byteProblem(opened, offer, trust.key);
    if (problem.isEmpty()) {
        problem = packageProblem(opened, offer, trust.package, run);
    }
    if (!problem.isEmpty()) {
        opened.remove();
        throw UpdateError(QStringLiteral("The download \"%1\" was deleted because %2.")
                              .arg(offer.fileName, problem));
    }
}

}  // namespace TarnwickDirect
