#include "Tarnwick/Desktop/WorktreeListing.h"

#include "GitHubProvider/Text.h"

#include <algorithm>

namespace Tarnwick::EditorWorktree {

std::optional<std::filesystem::path> existingWorktree(
    std::string_view listing, const std::string& branch)
{
    constexpr std::string_view worktreeField = "worktree ";
    const std::string text = GitHub::decodeText(listing);
    const std::string branchField = "branch refs/heads/" + branch;
    std::optional<std::filesystem::path> current;
    std::string_view rest = text;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\0'), rest.size());
        const std::string_view field = rest.substr(0, end);
        rest.remove_prefix(std::min(end + 1, rest.size()));
        if (field.starts_with(worktreeField)) {
            current = field.substr(worktreeField.size());
        } else if (current && field == branchField) {
            return current;
        }
    }
    return std::nullopt;
}

}  // namespace Tarnwick::EditorWorktree
