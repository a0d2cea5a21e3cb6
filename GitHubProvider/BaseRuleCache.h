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

/// Required approvals by the id of the base branch's ref.
using BaseRuleCounts = std::map<std::string, std::int64_t>;

/// The same, including branches that require none.
using BaseRuleResults = std::map<std::string, std::optional<std::int64_t>>;

/// Caches the rules of base branches. It never shrinks. Safe from any thread.
class BaseRuleCache {
public:
    /// Older entries and those from the future are requested again.
    static constexpr std::chrono::seconds lifetime{300};

    struct Lookup {
        BaseRuleCounts counts;             ///< Only branches that require approvals.
        std::vector<std::string> missing;  ///< The ids to request, in the given order.

        bool operator==(const Lookup&) const = default;
    };

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
