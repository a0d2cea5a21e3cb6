#include "TarnwickDirect/SoftwareUpdate/AppImageReplacement.h"

#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"

#include <QFile>
#include <QTemporaryFile>

#include <array>
#include <cerrno>
#include <cstring>
#include <system_error>

#include <sys/stat.h>
#include <unistd.h>

namespace TarnwickDirect {
namespace {

[[noreturn]] void throwError(const std::filesystem::path& oldFile, const QString& reason)
{
    throw UpdateError(QStringLiteral("\"%1\" could not be replaced: %2.")
                          .arg(QFile::decodeName(oldFile.c_str()), reason));
}

QString systemReason(int error)
{
    return QString::fromStdString(std::generic_category().message(error));
}

/// The reason why a copy did not come about, or nothing.
QString copyProblem(QFile& source, QFile& target)
{
    std::array<char, std::size_t{256} * 1024> buffer{};
    qint64 count = 0;
    while ((count = source.read(buffer.data(), buffer.size())) > 0) {
        // A full disk takes a part of the bytes and reports that as success.
        qint64 written = 0;
        while (written < count) {
            const qint64 piece = target.write(buffer.data() + written, count - written);
            if (piece <= 0) {
                return target.errorString();
            }
            written += piece;
        }
    }
    return count < 0 ? source.errorString() : QString{};
}

}  // namespace

void replaceAppImage(const std::filesystem::path& oldFile, const std::filesystem::path& newFile)
{
    std::error_code error;
    const auto target = std::filesystem::canonical(oldFile, error);
    struct stat status{};
    if (error || stat(target.c_str(), &status) != 0) {
        throwError(oldFile, systemReason(error ? error.value() : errno));
    }
    QFile source(newFile);
    QTemporaryFile replacement(QFile::decodeName(target.c_str()) + QStringLiteral(".XXXXXX"));
    if (!source.open(QIODevice::ReadOnly)) {
        throwError(oldFile, source.errorString());
    }
    if (!replacement.open()) {
        throwError(oldFile, replacement.errorString());
    }
    if (const QString problem = copyProblem(source, replacement); !problem.isEmpty()) {
        throwError(oldFile, problem);
    }
    const QByteArray name = QFile::encodeName(replacement.fileName());
    const bool isInPlace = replacement.flush()
                           && fchmod(replacement.handle(), (status.st_mode & 07777U) | S_IXUSR) == 0
                           && fsync(replacement.handle()) == 0
                           && rename(name.constData(), target.c_str()) == 0;
    if (!isInPlace) {
        throwError(oldFile, systemReason(errno));
    }
    // Its name belongs to nobody any more.
    replacement.setAutoRemove(false);
}

}  // namespace TarnwickDirect
