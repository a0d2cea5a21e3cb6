#include "Fuzzers/Require.h"
#include "TarnwickDirect/SoftwareUpdate/VersionComparison.h"

#include <QString>
#include <QStringList>

using TarnwickDirect::compareVersions;

namespace {

void requireOrder(const QString& a, const QString& b, const QString& c)
{
    Fuzzers::require(compareVersions(a, a) == 0);
    Fuzzers::require((compareVersions(a, b) <=> 0) == (0 <=> compareVersions(b, a)));
    if (compareVersions(a, b) <= 0 && compareVersions(b, c) <= 0) {
        Fuzzers::require(compareVersions(a, c) <= 0);
    }
}

}  // namespace

/// Comparing three versions, one per line, is consistent and transitive.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QStringList versions = text.split(u'\n');
    const QString a = versions.value(0);
    const QString b = versions.value(1);
    const QString c = versions.value(2);
    requireOrder(a, b, c);
    requireOrder(b, c, a);
    requireOrder(c, b, a);
    Fuzzers::require(!TarnwickDirect::systemVersionIn(a).endsWith(u'.'));
    Fuzzers::require(a.contains(TarnwickDirect::upstreamVersion(a)));
    return 0;
}
