#pragma once

#include <stdexcept>
#include <string>

namespace Tarnwick {

/// Something outside the program could not be opened or prepared; `message` is the English text the
/// user reads, unchanged. It may have a second line with what a command said. `what()` is the same.
class ExternalNavigationError : public std::runtime_error {
public:
    explicit ExternalNavigationError(const std::string& message)
        : std::runtime_error(message)
    {}

    std::string message() const { return what(); }
};

}  // namespace Tarnwick
