#pragma once

namespace TarnwickDirect {

/// The result of the last check for updates.
enum class UpdateAvailability {
    unknown,
    checking,
    available,
    unavailable
};

}  // namespace TarnwickDirect
