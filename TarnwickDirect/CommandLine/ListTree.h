#pragma once

#include "PullRequestKit/PullRequestRow.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace TarnwickDirect {

/// The tree drawn in front of a row's lines, in pieces of `treePieceWidth` columns.
struct TreeLines {
    std::vector<std::string_view> first;  ///< For the title.
    std::vector<std::string_view> below;  ///< For the row's further lines.
};

inline constexpr int treePieceWidth = 3;

/// One per row, in order. Safe from any thread.
std::vector<TreeLines> treeLines(std::span<const PullRequestKit::PullRequestRow> rows);

/// The pieces as text. If they exceed `columns` columns, an ellipsis replaces those nearest to the
/// root. Safe from any thread.
std::string treeText(const std::vector<std::string_view>& pieces, int columns);

}  // namespace TarnwickDirect
