#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace PullRequestKit {

/// A provider failed. `message()` is an English sentence for the user.
class ProviderError : public std::runtime_error {
public:
    explicit ProviderError(const std::string& message)
        : std::runtime_error(message)
    {}

    std::string message() const { return what(); }
};

/// The service refuses requests for a while because too many came in a short time. This is
/// independent of the hourly quota, and further requests prolong it.
class SecondaryLimitError : public ProviderError {
public:
    using ProviderError::ProviderError;
};

/// The caller's `std::stop_token` was stopped. Never shown.
class CancellationError : public std::runtime_error {
public:
    CancellationError()
        : std::runtime_error("The operation was cancelled.")
    {}
};

/// A JSON document does not have the expected form. `path` names the offending value, such as
/// `data.search.nodes[3].number`; it is empty for the document as a whole.
class DecodingError : public std::runtime_error {
public:
    /// `problem` completes the sentence that begins with the path, such as "is not a whole number".
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
