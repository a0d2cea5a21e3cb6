#pragma once

#include <map>
#include <string>

namespace Tarnwick {

/// The key of the pull request's URL in a notification's user info.
inline constexpr const char* pullRequestUrlKey = "pullRequestURL";

/// A notification. It replaces an earlier one with the same identifier.
struct NotificationRequest {
    std::string identifier;
    std::string title;
    std::string subtitle;
    std::string sound;             ///< A name of the sound theme.
    std::string threadIdentifier;  ///< Groups notifications.
    std::map<std::string, std::string> userInfo;

    bool operator==(const NotificationRequest&) const = default;
};

}  // namespace Tarnwick
