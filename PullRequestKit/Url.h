#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace PullRequestKit {

/// An absolute URL in its original spelling.
struct Url {
    std::string text;

    bool operator==(const Url&) const = default;
};

/// Parses a URL: a scheme, a colon, and no white space or control characters. Yields nothing for
/// any other text. Safe from any thread.
std::optional<Url> parseUrl(std::string_view text);

}  // namespace PullRequestKit
