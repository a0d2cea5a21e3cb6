#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace PullRequestKit {

/// An absolute address, kept as the text it came as.
struct Url {
    std::string text;

    bool operator==(const Url&) const = default;
};

/// Reads an address: a scheme, a colon, and no white space or control characters anywhere. Yields
/// nothing for any other text. Safe from any thread.
std::optional<Url> parseUrl(std::string_view text);

}  // namespace PullRequestKit
