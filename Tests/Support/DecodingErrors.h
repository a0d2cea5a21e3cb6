#pragma once

#include "PullRequestKit/Errors.h"

#include <string>

#include <gtest/gtest.h>

namespace TestSupport {

struct DecodingErrorParts {
    std::string path;
    std::string text;
};

/// The `DecodingError` that `action` throws. Fails the test when it throws none.
template<typename Action>
DecodingErrorParts decodingErrorOf(Action action)
{
    try {
        action();
    } catch (const PullRequestKit::DecodingError& error) {
        return {error.path(), error.what()};
    }
    ADD_FAILURE() << "no DecodingError was thrown";
    return {};
}

}  // namespace TestSupport
