#include "TarnwickDirect/SoftwareUpdate/Installation.h"

#include "TarnwickDirect/SoftwareUpdate/VersionComparison.h"

namespace TarnwickDirect {
namespace {

const QString dpkgQuery = QStringLiteral("/usr/bin/dpkg-query");
const QString aptCache = QStringLiteral("/usr/bin/apt-cache");

/// The package in a line such as "tarnwick:amd64: /usr/bin/tarnwick". Nothing for lines with
/// several packages or diversions, which contain spaces.
QString packageIn(const QString& listing)
{
    const QString line = listing.section(u'\n', 0, 0);
    const auto end = line.indexOf(QStringLiteral(": /"));
    return end >= 0 && line.indexOf(u' ') > end ? line.first(end) : QString{};
}

}  // namespace

Installation findInstallation(const QString& executable, const RunCommand& run)
{
    Installation found;
    found.package = packageIn(run(dpkgQuery, {QStringLiteral("-S"), executable}));
    if (found.package.isEmpty()) {
        return found;
    }
    if (!run(aptCache, {QStringLiteral("madison"), found.package}).isEmpty()) {
        found.kind = Installation::Kind::repositoryPackage;
        return found;
    }
    found.kind = Installation::Kind::debianPackage;
    found.packageVersion = upstreamVersion(
        run(dpkgQuery, {QStringLiteral("-W"), QStringLiteral("-f=${Version}"), found.package}));
    return found;
}

}  // namespace TarnwickDirect
