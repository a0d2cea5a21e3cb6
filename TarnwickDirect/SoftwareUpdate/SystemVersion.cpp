#include "TarnwickDirect/SoftwareUpdate/SystemVersion.h"

#include <algorithm>

namespace TarnwickDirect {

QString systemVersionIn(const QString& kernelVersion)
{
    const auto* const end = std::ranges::find_if_not(kernelVersion, [](QChar character) {
        return (character >= u'0' && character <= u'9') || character == u'.';
    });
    QString version = kernelVersion.first(end - kernelVersion.begin());
    while (version.endsWith(u'.')) {
        version.chop(1);
    }
    return version;
}

}  // namespace TarnwickDirect
