#pragma once

#include "TarnwickDirect/SoftwareUpdate/Appcast.h"

namespace TarnwickDirect {

/// What a file of the feed is, by its media type or else by the end of its name.
enum class PackageFormat {
    appImage,
    debianPackage,
    other
};

/// Safe from any thread.
PackageFormat packageFormatOf(const AppcastEnclosure& enclosure);

}  // namespace TarnwickDirect
