#include "SoftwareUpdate/Packages.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <map>
#include <stdexcept>

namespace TestSupport {
namespace {

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

QByteArray build(const QByteArray& version, const QByteArray& name)
{
    const QTemporaryDir folder;
    const QString root = folder.filePath(QStringLiteral("root"));
    const QString package = folder.filePath(QStringLiteral("package.deb"));
    QDir().mkpath(root + QStringLiteral("/DEBIAN"));
    write(
        root + QStringLiteral("/DEBIAN/control"),
        "Package: " + name + "\nVersion: " + version
            + "\nArchitecture: all\nMaintainer: Tests <tests@localhost>\n"
              "Description: A package of the tests\n");
    write(root + QStringLiteral("/file"), QByteArray(300'000, 'p'));
    const QStringList arguments{QStringLiteral("-Znone"), QStringLiteral("--build"), root, package};
    QProcess dpkg;
    dpkg.start(QStringLiteral("dpkg-deb"), arguments);
    if (!dpkg.waitForFinished() || dpkg.exitCode() != 0) {
        throw std::runtime_error("dpkg-deb builds no package");
    }
    QFile file(package);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

const QByteArray& debianPackage(const char* version, const char* name)
{
    static std::map<std::pair<QByteArray, QByteArray>, QByteArray> built;
    QByteArray& package = built[{version, name}];
    if (package.isEmpty()) {
        package = build(version, name);
    }
    return package;
}

}  // namespace TestSupport
