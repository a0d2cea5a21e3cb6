#pragma once

#include "PullRequestKit/Json/Fields.h"

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>

namespace GitHub {

/// How GitHub treats a search that names several repositories. Kept across starts.
struct SearchKnowledge {
    /// The terms mean all of them, so they have to be grouped with OR.
    bool isGrouped = false;

    /// The largest group that GitHub accepts, once it has refused a larger one.
    std::optional<std::int64_t> groupSize;

    /// The time of the last check.
    std::optional<PullRequestKit::Date> askedAt;

    /// A repository known to have pull requests, for the next check.
    std::optional<std::string> repository;

    bool operator==(const SearchKnowledge&) const = default;
};

/// Stores the knowledge; this implementation only in memory. Safe from any thread.
class SearchMemory {
public:
    SearchMemory() = default;
    SearchMemory(const SearchMemory&) = delete;
    SearchMemory& operator=(const SearchMemory&) = delete;
    virtual ~SearchMemory() = default;

    /// Never throws: unreadable data counts as missing.
    virtual SearchKnowledge load() const
    {
        const std::lock_guard lock(_mutex);
        return _knowledge;
    }

    /// Never throws: what cannot be stored is lost at the next start.
    virtual void save(const SearchKnowledge& knowledge)
    {
        const std::lock_guard lock(_mutex);
        _knowledge = knowledge;
    }

private:
    mutable std::mutex _mutex;
    SearchKnowledge _knowledge;
};

}  // namespace GitHub

// Stored: do not rename.
template<>
struct PullRequestKit::Json::Fields<GitHub::SearchKnowledge> {
    static constexpr std::tuple table{
        defaultedField("isGrouped", &GitHub::SearchKnowledge::isGrouped),
        field("groupSize", &GitHub::SearchKnowledge::groupSize),
        field("askedAt", &GitHub::SearchKnowledge::askedAt),
        field("repository", &GitHub::SearchKnowledge::repository),
    };
};
