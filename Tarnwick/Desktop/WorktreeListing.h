#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace Tarnwick::EditorWorktree {

/// Finds this branch in the output of `git worktree list --porcelain -z`. Safe from any thread.
std::optional<std::filesystem::path> existingWorktree(
    std::string_view listing, const std::string& branch);

}  // namespace Tarnwick::EditorWorktree
