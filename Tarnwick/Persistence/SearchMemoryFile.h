#pragma once

#include "GitHubProvider/SearchMemory.h"

#include <cstddef>
#include <filesystem>

namespace Tarnwick {

/// Keeps what is known of GitHub's search in a file, which each call reads or replaces as a whole,
/// so that all processes share it. What cannot be written is kept for as long as this lives.
/// Blocks; safe from any thread.
class SearchMemoryFile final : public GitHub::SearchMemory {
public:
    /// A larger file is none of ours, and is not read.
    static constexpr std::size_t largestFile = std::size_t{64} * 1024;

    explicit SearchMemoryFile(std::filesystem::path file);

    /// `search.json` in the folder of a cache file.
    static std::filesystem::path beside(const std::filesystem::path& cacheFile);

    GitHub::SearchKnowledge load() const override;
    void save(const GitHub::SearchKnowledge& knowledge) override;

private:
    std::filesystem::path _file;
};

}  // namespace Tarnwick
