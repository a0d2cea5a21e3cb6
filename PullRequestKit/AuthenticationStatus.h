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

    bool operator==(const Unavailable&) const = default;
};

using AuthenticationStatus = std::variant<Authenticated, NotAuthenticated, Unavailable>;

}  // namespace PullRequestKit
