#include "TarnwickDirect/SoftwareUpdate/DownloadVerification.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateChoice.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <iostream>
#include <span>

using namespace TarnwickDirect;

namespace {

struct Release {
    QString feed;
    QString package;
    Ed25519::PublicKey key{};
    QString version;
};

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        throw UpdateError(QStringLiteral("%1 cannot be read.").arg(path));
    }
    return file.readAll();
}

/// What a Debian package of this version finds in the feed.
std::variant<UpdateOffer, NoUpdate> foundBy(const QString& ownVersion, const Appcast& feed)
{
    return chooseUpdate(
        feed,
        {.ownVersion = ownVersion,
         .systemVersion = QStringLiteral("6.1"),
         .channels = {},
         .skippedVersion = {}});
}

UpdateOffer offerOf(const Release& release, const Appcast& feed)
{
    const auto found = foundBy(QStringLiteral("0"), feed);
    const auto* const offer = std::get_if<UpdateOffer>(&found);
    if (offer == nullptr || offer->version != release.version) {
        throw UpdateError(
            QStringLiteral("The feed does not offer %1 to those who have an older version.")
                .arg(release.version));
    }
    if (!std::holds_alternative<NoUpdate>(foundBy(release.version, feed))) {
        throw UpdateError(
            QStringLiteral("The feed offers an update to those who have %1.").arg(release.version));
    }
    return *offer;
}

/// Verifies a copy, because what fails is deleted.
void verify(const Release& release, const UpdateOffer& offer)
{
    const QTemporaryDir folder;
    const QString copy = folder.filePath(offer.fileName);
    if (!folder.isValid() || !QFile::copy(release.package, copy)) {
        throw UpdateError(QStringLiteral("%1 cannot be copied.").arg(release.package));
    }
    verifyDownload(
        copy.toStdString(),
        offer,
        {.key = release.key, .package = QStringLiteral("tarnwick")},
        [](const QString& program, const QStringList& arguments) {
            return outputOf(program, arguments, {});
        });
}

void check(const Release& release)
{
    const UpdateOffer offer = offerOf(release, readAppcast(contentOf(release.feed)));
    if (!release.package.endsWith(QLatin1Char('/') + offer.fileName)) {
        throw UpdateError(QStringLiteral("The feed names the file %1.").arg(offer.fileName));
    }
    verify(release, offer);
    std::cout << "The feed offers " << offer.version.toStdString() << ", and "
              << offer.fileName.toStdString()
              << " is the file it describes, signed with the key.\n";
}

}  // namespace

/// Checks a release before it is published, as the program checks what it finds and downloads. Ends
/// with 0 when all is right, 1 when something is wrong, 2 when the command line makes no sense.
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const std::span arguments(argv, std::size_t(argc));
    const auto key =
        argc == 5 ? Ed25519::publicKeyFrom(QString::fromUtf8(arguments[3])) : std::nullopt;
    if (!key) {
        std::cerr
            << "Give the path of the feed, the absolute path of the package, the public key in "
               "Base64, and the version.\n";
        return 2;
    }
    try {
        check(
            {.feed = QString::fromUtf8(arguments[1]),
             .package = QString::fromUtf8(arguments[2]),
             .key = *key,
             .version = QString::fromUtf8(arguments[4])});
        return 0;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
