#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace PullRequestKit {

/// A provider could not do what it was asked; `message` is the English sentence the user reads,
/// unchanged. `what()` is the same text.
class ProviderError : public std::runtime_error {
public:
    explicit ProviderError(const std::string& message)
        : std::runtime_error(message)
    {}

    std::string message() const { return what(); }
};

/// The service refuses requests for a while, because too many came within a short time, however
/// much of the hour's quota is left. Requests that follow soon prolong it.
class SecondaryLimitError : public ProviderError {
public:
    using ProviderError::ProviderError;
};

/// The caller's `std::stop_token` asked for an end. Never shown: the caller that cancelled knows.
class CancellationError : public std::runtime_error {
public:
    CancellationError()
        : std::runtime_error("The operation was cancelled.")
    {}
};

/// A JSON document is not what it should be. `path` names the offending value, such as
/// `data.search.nodes[3].number`; it is empty when the document as a whole is meant.
class DecodingError : public std::runtime_error {
public:
    /// `problem` continues the sentence that the path begins, such as "is not a whole number".
    DecodingError(std::string path, const std::string& problem)
        : std::runtime_error(
              "The data could not be read: " + (path.empty() ? "it" : path) + " " + problem + ".")
        , _path(std::move(path))
    {}

    const std::string& path() const { return _path; }

private:
    std::string _path;
};

}  // namespace PullRequestKit
