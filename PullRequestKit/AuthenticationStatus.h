#pragma once

#include <optional>
#include <string>
#include <variant>

namespace PullRequestKit {

/// Signed in; the login where it is known.
struct Authenticated {
    std::optional<std::string> account;

    bool operator==(const Authenticated&) const = default;
};

/// The service's tool is there but not signed in; the text to show.
struct NotAuthenticated {
    std::string message;

    bool operator==(const NotAuthenticated&) const = default;
};

/// The provider cannot be used at all; the text to show.
struct Unavailable {
    std::string message;

    /// The tool works and signing in would not help: the service is out of reach, or takes no
    /// further requests for now.
    bool isServiceOutOfReach = false;

    /// By the message alone, which says the reason.
    bool operator==(const Unavailable& other) const { return message == other.message; }
};

using AuthenticationStatus = std::variant<Authenticated, NotAuthenticated, Unavailable>;

}  // namespace PullRequestKit
