#pragma once

#include "PullRequestKit/EnumNames.h"

namespace PullRequestKit {

/// Which pull requests to list, by the user's part in them.
enum class ReviewerScope {
    myself,  ///< The user's review is requested.
    any,
    involved,  ///< The user is a requested reviewer, a reviewer or the author.
};

// Stored: do not rename.
template<>
struct EnumNames<ReviewerScope> {
    static constexpr auto names = enumNames<ReviewerScope>({
        {ReviewerScope::myself, "myself"},
        {ReviewerScope::any, "any"},
        {ReviewerScope::involved, "involved"},
    });
};

}  // namespace PullRequestKit
