#pragma once

#include "PullRequestKit/PullRequest.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace PullRequestKit {

/// A row of the list: a pull request and its place in its stack.
struct PullRequestRow {
    PullRequest pullRequest;
    std::int64_t depth = 0;    ///< 0 for the root of a stack.
    bool hasChildren = false;  ///< The next row is stacked on this one.
    std::optional<std::string> warning;

    const PullRequestID& id() const { return pullRequest.id; }

    bool operator==(const PullRequestRow&) const = default;
};

template<>
struct Json::Fields<PullRequestRow> {
    static constexpr std::tuple table{
        field("pullRequest", &PullRequestRow::pullRequest),
        field("depth", &PullRequestRow::depth),
        field("hasChildren", &PullRequestRow::hasChildren),
        field("warning", &PullRequestRow::warning),
    };
};

}  // namespace PullRequestKit

template<>
struct std::hash<PullRequestKit::PullRequestRow> : PullRequestKit::RecordHash {};
