#pragma once

#include "Tarnwick/Desktop/NotificationRequest.h"
#include "Tarnwick/ExternalNavigation.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace Tarnwick {

struct NotificationResponse {
    std::string actionIdentifier;
    std::map<std::string, std::string> userInfo;
    std::string activationToken;  ///< May be empty.
};

/// The action of a click and of the "Open" button.
inline constexpr const char* defaultActionIdentifier = "default";

/// Opens the pull request of a clicked notification.
class NotificationPresentationDelegate {
public:
    /// Requires: `navigation` is not null.
    explicit NotificationPresentationDelegate(std::shared_ptr<const ExternalNavigation> navigation);

    /// `opened` is called on the main thread with each opened URL. Call before any response
    /// arrives.
    void setOpened(std::function<void(const PullRequestKit::Url&)> opened);

    /// Opens a web address if the action is the default one. Returns at once. Safe from any thread.
    void didReceive(const NotificationResponse& response) const;

private:
    std::shared_ptr<const ExternalNavigation> _navigation;
    std::function<void(const PullRequestKit::Url&)> _opened;
};

}  // namespace Tarnwick
