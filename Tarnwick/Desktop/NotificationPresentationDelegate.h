#pragma once

#include "Tarnwick/Desktop/NotificationRequest.h"
#include "Tarnwick/ExternalNavigation.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace Tarnwick {

/// What the user did with a notification.
struct NotificationResponse {
    std::string actionIdentifier;
    std::map<std::string, std::string> userInfo;
    std::string activationToken;  ///< Empty when the server gave none.
};

/// The identifier of the default action, which is the plain click and the "Open" button.
inline constexpr const char* defaultActionIdentifier = "default";

/// Opens the pull request of a notification that the user clicks. Servers show notifications
/// whether or not the program is in front, with banner, list and sound, so it has no part in that.
class NotificationPresentationDelegate {
public:
    /// Requires: `navigation`.
    explicit NotificationPresentationDelegate(std::shared_ptr<const ExternalNavigation> navigation);

    /// Whom the address is told that a click opens, on the main thread. To be called before the
    /// first response can arrive.
    void setOpened(std::function<void(const PullRequestKit::Url&)> opened);

    /// Opens the address soon if the action is the default one and the address one of the web;
    /// otherwise does nothing. Safe from any thread.
    void didReceive(const NotificationResponse& response) const;

private:
    std::shared_ptr<const ExternalNavigation> _navigation;
    std::function<void(const PullRequestKit::Url&)> _opened;
};

}  // namespace Tarnwick
