#pragma once

#include <map>
#include <string>

namespace Tarnwick {

/// The key of the pull request's address in a notification's user info.
inline constexpr const char* pullRequestUrlKey = "pullRequestURL";

/// A notification as the program means it, to be shown at once. Another one with the same
/// identifier takes its place.
struct NotificationRequest {
    std::string identifier;
    std::string title;
    std::string subtitle;
    std::string sound;             ///< By its name in the sound theme.
    std::string threadIdentifier;  ///< Notifications with the same one form a group.
    std::map<std::string, std::string> userInfo;

    bool operator==(const NotificationRequest&) const = default;
};

}  // namespace Tarnwick
