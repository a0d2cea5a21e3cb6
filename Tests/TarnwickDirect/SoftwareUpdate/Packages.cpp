#include "SoftwareUpdate/Packages.h"

#include <QProcess>

#include <map>
#include <stdexcept>

namespace TestSupport {
namespace {

/// Writes the package $1 in version $2 to standard output.
const char* const script = R"(
set -e
folder=$(mktemp -d)
trap 'rm -r "$folder"' EXIT
mkdir -p "$folder/root/DEBIAN"
head -c 300000 /dev/zero >"$folder/root/file"
cat >"$folder/root/DEBIAN/control" <<END
Package: $1
Version: $2
Architecture: all
Maintainer: Tests <tests@localhost>
Description: A package of the tests
END
dpkg-deb -Znone --build "$folder/root" "$folder/package.deb" >&2
cat "$folder/package.deb"
)";

}  // namespace

const QByteArray& debianPackage(const char* version, const char* name)
{
    static std::map<std::pair<QByteArray, QByteArray>, QByteArray> built;
    QByteArray& package = built[{version, name}];
    if (package.isEmpty()) {
        QProcess shell;
        shell.start(
            QStringLiteral("/bin/sh"),
            {QStringLiteral("-c"),
             QString::fromUtf8(script),
             QStringLiteral("sh"),
             QString::fromUtf8(name),
             QString::fromUtf8(version)});
        shell.waitForFinished();
        package = shell.readAllStandardOutput();
        if (package.isEmpty()) {
            throw std::runtime_error("dpkg-deb builds no package");
        }
    }
    return package;
}

}  // namespace TestSupport
