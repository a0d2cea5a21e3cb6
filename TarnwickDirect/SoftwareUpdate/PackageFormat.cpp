#include "TarnwickDirect/SoftwareUpdate/PackageFormat.h"

namespace TarnwickDirect {

PackageFormat packageFormatOf(const AppcastEnclosure& enclosure)
{
    const QString path = enclosure.url.path();
    if (enclosure.type == u"application/vnd.appimage"
        || path.endsWith(QStringLiteral(".appimage"), Qt::CaseInsensitive)) {
        return PackageFormat::appImage;
    }
    if (enclosure.type == u"application/vnd.debian.binary-package"
        || path.endsWith(QStringLiteral(".deb"), Qt::CaseInsensitive)) {
        return PackageFormat::debianPackage;
    }
    return PackageFormat::other;
}

}  // namespace TarnwickDirect
