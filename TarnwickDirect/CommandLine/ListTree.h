#pragma once

#include "PullRequestKit/PullRequestRow.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace TarnwickDirect {

/// What stands in front of a row's lines so that stacks are seen as a tree, in pieces of
/// `treePieceWidth` columns.
struct TreeLines {
    std::vector<std::string_view> first;  ///< Leads to the row's title.
    std::vector<std::string_view> below;  ///< Goes on beside the further lines of the row.
};

inline constexpr int treePieceWidth = 3;

/// One for each of the rows, in their order. Safe from any thread.
std::vector<TreeLines> treeLines(std::span<const PullRequestKit::PullRequestRow> rows);

/// The pieces as one text of at most `columns` columns; where they take more, an ellipsis stands
/// for the ones nearest to the root. Safe from any thread.
std::string treeText(const std::vector<std::string_view>& pieces, int columns);

}  // namespace TarnwickDirect
