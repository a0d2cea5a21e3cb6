#pragma once

#include "GitHubProvider/Clocks.h"

#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace GitHub {

/// How many approvals a branch requires, by the id of its ref.
using BaseRuleCounts = std::map<std::string, std::int64_t>;

/// The same, with the branches that require none.
using BaseRuleResults = std::map<std::string, std::optional<std::int64_t>>;

/// Remembers the rules of base branches for a while, so that a refresh does not ask for them again.
/// It never shrinks. Safe from any thread.
class BaseRuleCache {
public:
    /// An entry this old is asked for again, as is one from the future.
    static constexpr std::chrono::seconds lifetime{300};

    struct Lookup {
        BaseRuleCounts counts;             ///< Of the ids whose branches require approvals.
        std::vector<std::string> missing;  ///< The ids to ask for, in the given order.

        bool operator==(const Lookup&) const = default;
    };

    /// Requires: a clock.
    explicit BaseRuleCache(WallClock clock);

    Lookup lookup(const std::vector<std::string>& ids) const;
    void store(const BaseRuleResults& results);

private:
    struct Entry {
        std::optional<std::int64_t> count;
        std::chrono::system_clock::time_point loadedAt;
    };

    WallClock _clock;
    mutable std::mutex _mutex;
    std::unordered_map<std::string, Entry> _entries;
};

}  // namespace GitHub
