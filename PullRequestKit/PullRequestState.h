#pragma once

#include "PullRequestKit/EnumNames.h"

namespace PullRequestKit {

enum class PullRequestState {
    open,
    closed,
    merged,
};

/// `unknown` while GitHub has not computed it.
enum class PullRequestMergeability {
    mergeable,
    conflicting,
    unknown,
};

// Stored: do not rename.
template<>
struct EnumNames<PullRequestState> {
    static constexpr auto names = enumNames<PullRequestState>({
        {PullRequestState::open, "open"},
        {PullRequestState::closed, "closed"},
        {PullRequestState::merged, "merged"},
    });
};

// Stored: do not rename.
template<>
struct EnumNames<PullRequestMergeability> {
    static constexpr auto names = enumNames<PullRequestMergeability>({
        {PullRequestMergeability::mergeable, "mergeable"},
        {PullRequestMergeability::conflicting, "conflicting"},
        {PullRequestMergeability::unknown, "unknown"},
    });
};

}  // namespace PullRequestKit
