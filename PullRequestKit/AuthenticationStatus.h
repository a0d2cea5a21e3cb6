#pragma once

#include <optional>
#include <string>
#include <variant>

namespace PullRequestKit {

/// Signed in; without an account when the login is unknown.
struct Authenticated {
    std::optional<std::string> account;

    bool operator==(const Authenticated&) const = default;
};

/// The service's tool is installed but not signed in. `message` is for the user.
struct NotAuthenticated {
    std::string message;

    bool operator==(const NotAuthenticated&) const = default;
};

/// The provider cannot be used. `message` is for the user.
struct Unavailable {
    std::string message;

    /// Signing in would not help: the service is unreachable or currently refuses requests.
    bool isServiceOutOfReach = false;

    bool operator==(const Unavailable& other) const { return message == other.message; }
};

using AuthenticationStatus = std::variant<Authenticated, NotAuthenticated, Unavailable>;

}  // namespace PullRequestKit
