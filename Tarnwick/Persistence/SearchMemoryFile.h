#pragma once

#include "GitHubProvider/SearchMemory.h"

#include <cstddef>
#include <filesystem>

namespace Tarnwick {

/// Stores the search knowledge in a file that all processes share. Each call reads or replaces the
/// file. What cannot be written is kept in memory. Blocks; safe from any thread.
class SearchMemoryFile final : public GitHub::SearchMemory {
public:
    /// Larger files are not read.
    static constexpr std::size_t largestFile = std::size_t{64} * 1024;

    explicit SearchMemoryFile(std::filesystem::path file);

    /// `search.json` beside the cache file.
    static std::filesystem::path beside(const std::filesystem::path& cacheFile);

    GitHub::SearchKnowledge load() const override;
    void save(const GitHub::SearchKnowledge& knowledge) override;

private:
    std::filesystem::path _file;
};

}  // namespace Tarnwick
