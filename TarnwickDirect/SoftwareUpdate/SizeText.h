#pragma once

#include <QLocale>
#include <QString>

#include <cstdint>

namespace TarnwickDirect {

/// A number of bytes as people read it: "4 MiB" where that is exact, else such as "34.2 MB".
inline QString sizeText(std::uint64_t bytes)
{
    constexpr std::uint64_t mebibyte = 1U << 20U;
    constexpr std::uint64_t gibibyte = 1U << 30U;
    if (bytes > 0 && bytes % gibibyte == 0) {
        return QStringLiteral("%1 GiB").arg(bytes / gibibyte);
    }
    if (bytes > 0 && bytes % mebibyte == 0) {
        return QStringLiteral("%1 MiB").arg(bytes / mebibyte);
    }
    return QLocale(QLocale::English).formattedDataSize(qint64(bytes), 1, QLocale::DataSizeSIFormat);
}

}  // namespace TarnwickDirect
