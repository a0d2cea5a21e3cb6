#pragma once

#include "TarnwickDirect/SoftwareUpdate/Appcast.h"

namespace TestSupport {

/// 64 bytes in Base64 that sign nothing.
inline const QString wellFormedSignature = QString::fromLatin1(QByteArray(64, 's').toBase64());

/// An item that every installation can take, with an AppImage and a Debian package.
inline TarnwickDirect::AppcastItem itemOf(const QString& version)
{
    const QString address = QStringLiteral("https://example.com/Tarnwick-%1.%2");
    TarnwickDirect::AppcastItem item;
    item.version = version;
    for (const QString& ending : {QStringLiteral("AppImage"), QStringLiteral("deb")}) {
        item.enclosures.push_back(
            {.url = QUrl(address.arg(version, ending)),
             .length = 1000,
             .type = QStringLiteral("application/octet-stream"),
             .signature = wellFormedSignature,
             .operatingSystem = {}});
    }
    return item;
}

}  // namespace TestSupport
