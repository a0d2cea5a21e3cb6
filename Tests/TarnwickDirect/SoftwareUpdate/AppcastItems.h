#pragma once

#include "TarnwickDirect/SoftwareUpdate/Appcast.h"

namespace TestSupport {

/// 64 bytes in Base64 that sign nothing.
inline const QString wellFormedSignature = QString::fromLatin1(QByteArray(64, 's').toBase64());

/// An item with a Debian package.
inline TarnwickDirect::AppcastItem itemOf(const QString& version)
{
    TarnwickDirect::AppcastItem item;
    item.version = version;
    item.enclosures = {
        {.url = QUrl(QStringLiteral("https://example.com/tarnwick_%1.deb").arg(version)),
         .length = 1000,
         .type = QStringLiteral("application/octet-stream"),
         .signature = wellFormedSignature,
         .operatingSystem = {}}};
    return item;
}

}  // namespace TestSupport
