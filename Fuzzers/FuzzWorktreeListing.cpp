#include "Fuzzers/Require.h"
#include "GitHubProvider/Text.h"
#include "Tarnwick/Desktop/WorktreeListing.h"

#include <algorithm>
#include <string>

using Tarnwick::EditorWorktree::existingWorktree;

/// The first line of the input is the branch, the rest is the listing.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input = Fuzzers::textOf(data, size);
    const std::size_t end = std::min(input.find('\n'), input.size());
    const std::string branch = GitHub::decodeText(input.substr(0, end));
    const std::string listing =
        std::string("\0", 1) + GitHub::decodeText(input.substr(std::min(end + 1, size)));

    // The result is in the listing, and later entries do not hide earlier ones.
    if (const auto found = existingWorktree(listing, branch)) {
        const std::string field = std::string("\0", 1) + "worktree " + found->string();
        Fuzzers::require(listing.find(field) != std::string::npos);
        Fuzzers::require(listing.find("branch refs/heads/" + branch) != std::string::npos);
    }
    if (branch.find('\0') == std::string::npos) {
        const std::string first =
            std::string("worktree /first\0branch refs/heads/", 34) + branch + std::string("\0", 1);
        Fuzzers::require(existingWorktree(first + listing, branch) == "/first");
    }
    return 0;
}
