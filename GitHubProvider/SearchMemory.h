#pragma once

#include "PullRequestKit/Json/Fields.h"

#include <cstdint>
#include <mutex>
#include <optional>
#include <string>

namespace GitHub {

/// What is known of how GitHub takes a search that names several repositories. It is kept across
/// starts.
struct SearchKnowledge {
    /// It takes them for all of them at once, so they have to be grouped with OR.
    bool isGrouped = false;

    /// The largest number of repositories in one group, once GitHub has refused more.
    std::optional<std::int64_t> groupSize;

    /// When the meaning was last asked about.
    std::optional<PullRequestKit::Date> askedAt;

    /// A repository in which something was found once: one to ask about.
    std::optional<std::string> repository;

    bool operator==(const SearchKnowledge&) const = default;
};

/// Keeps the knowledge; this one only for as long as it lives. Safe from any thread.
class SearchMemory {
public:
    SearchMemory() = default;
    SearchMemory(const SearchMemory&) = delete;
    SearchMemory& operator=(const SearchMemory&) = delete;
    virtual ~SearchMemory() = default;

    /// Never throws: what cannot be read is not known.
    virtual SearchKnowledge load() const
    {
        const std::lock_guard lock(_mutex);
        return _knowledge;
    }

    /// Never throws: what cannot be kept is asked anew after the next start.
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
