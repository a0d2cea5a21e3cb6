#include "TarnwickDirect/CommandLine/ListTree.h"

#include <algorithm>

namespace TarnwickDirect {

using PullRequestKit::PullRequestRow;

namespace {

constexpr std::string_view trunk = "│  ";
constexpr std::string_view branch = "├─ ";
constexpr std::string_view lastBranch = "└─ ";
constexpr std::string_view nothing = "   ";
constexpr std::string_view ellipsis = "…  ";

/// Whether a later row has the same parent.
bool hasLaterSibling(std::span<const PullRequestRow> rows, std::size_t index)
{
    const std::int64_t depth = rows[index].depth;
    const auto next = std::find_if(
        rows.begin() + static_cast<std::ptrdiff_t>(index) + 1,
        rows.end(),
        [&](const PullRequestRow& row) { return row.depth <= depth; });
    return next != rows.end() && next->depth == depth;
}

}  // namespace

std::vector<TreeLines> treeLines(std::span<const PullRequestRow> rows)
{
    std::vector<TreeLines> trees;
    trees.reserve(rows.size());
    std::vector<bool> isOpen;  // By level: more rows follow there.
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const auto depth = static_cast<std::size_t>(rows[index].depth);
        isOpen.resize(depth);
        isOpen.push_back(depth > 0 && hasLaterSibling(rows, index));
        TreeLines tree;
        for (std::size_t level = 1; level <= depth; ++level) {
            tree.below.push_back(isOpen[level] ? trunk : nothing);
        }
        tree.first = tree.below;
        if (depth > 0) {
            tree.first.back() = isOpen[depth] ? branch : lastBranch;
        }
        tree.below.push_back(rows[index].hasChildren ? trunk : nothing);
        trees.push_back(std::move(tree));
    }
    return trees;
}

std::string treeText(const std::vector<std::string_view>& pieces, int columns)
{
    const auto fitting = static_cast<std::size_t>(std::max(columns, 0) / treePieceWidth);
    const std::size_t skipped = pieces.size() - std::min(pieces.size(), fitting);
    std::string text;
    for (std::size_t index = skipped; index < pieces.size(); ++index) {
        text += skipped > 0 && index == skipped ? ellipsis : pieces[index];
    }
    return text;
}

}  // namespace TarnwickDirect
