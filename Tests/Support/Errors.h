#pragma once

#include "PullRequestKit/Errors.h"
#include "Support/Names.h"

#include <string>

namespace TestSupport {

/// The message of the error of this type that `action` throws, or "none".
template<typename Error = std::exception, typename Action>
std::string messageOf(Action action)
{
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return "none";
}

/// The path of the `DecodingError` that `action` throws, or "none".
template<typename Action>
std::string pathOf(Action action)
{
    try {
        action();
    } catch (const DecodingError& error) {
        return error.path();
    }
    return "none";
}

}  // namespace TestSupport
