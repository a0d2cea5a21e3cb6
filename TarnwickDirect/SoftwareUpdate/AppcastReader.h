#pragma once

#include "TarnwickDirect/SoftwareUpdate/Appcast.h"

#include <QByteArray>

namespace TarnwickDirect {

/// The size in bytes from which on a feed is refused.
inline constexpr qsizetype appcastSizeLimit = qsizetype{4} << 20;

/// Reads an RSS feed of updates. Elements that it does not know are passed over, and what stands
/// twice counts the first time. Throws `UpdateError` when the feed is empty, too large, cut off,
/// not XML, not RSS, or brings a document type, with which entities come. Safe from any thread.
Appcast readAppcast(const QByteArray& feed);

}  // namespace TarnwickDirect
