#pragma once

#include <stdexcept>
#include <string>

namespace Tarnwick {

/// Something outside the program could not be opened or prepared. `message` is an English text for
/// the user; further lines may hold the output of a command.
class ExternalNavigationError : public std::runtime_error {
public:
    explicit ExternalNavigationError(const std::string& message)
        : std::runtime_error(message)
    {}

    std::string message() const { return what(); }
};

}  // namespace Tarnwick
