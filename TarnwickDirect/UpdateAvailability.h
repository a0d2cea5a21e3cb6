#pragma once

namespace TarnwickDirect {

/// What the last check for updates found.
enum class UpdateAvailability {
    unknown,
    checking,
    available,
    unavailable
};

}  // namespace TarnwickDirect
