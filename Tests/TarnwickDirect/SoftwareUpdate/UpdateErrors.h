#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"

#include <string>

namespace TestSupport {

/// The message of the `UpdateError` that a function throws, or "none".
template<typename Function>
std::string updateErrorOf(const Function& function)
{
    try {
        function();
    } catch (const TarnwickDirect::UpdateError& error) {
        return error.what();
    }
    return "none";
}

}  // namespace TestSupport
