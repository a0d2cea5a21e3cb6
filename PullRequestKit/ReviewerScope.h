#pragma once

#include "PullRequestKit/EnumNames.h"

namespace PullRequestKit {

/// Whose review the wanted pull requests ask for.
enum class ReviewerScope {
    myself,
    any,
};

// Stored: do not rename.
template<>
struct EnumNames<ReviewerScope> {
    static constexpr auto names = enumNames<ReviewerScope>({
        {ReviewerScope::myself, "myself"},
        {ReviewerScope::any, "any"},
    });
};

}  // namespace PullRequestKit
