#pragma once

#include "PullRequestKit/EnumNames.h"

namespace PullRequestKit {

/// How the wanted pull requests concern the user.
enum class ReviewerScope {
    myself,    ///< They ask for the user's review.
    any,       ///< In any way or none.
    involved,  ///< The user is asked for a review, has given one, or is the author.
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
