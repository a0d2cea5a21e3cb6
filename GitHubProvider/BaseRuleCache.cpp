#include "GitHubProvider/BaseRuleCache.h"

#include <utility>

namespace GitHub {
namespace {

/// A negative age means that the clock was set back.
bool isFresh(std::chrono::system_clock::duration age)
{
    return age >= std::chrono::system_clock::duration::zero() && age < BaseRuleCache::lifetime;
}

}  // namespace

BaseRuleCache::BaseRuleCache(WallClock clock)
    : _clock(std::move(clock))
{}

BaseRuleCache::Lookup BaseRuleCache::lookup(const std::vector<std::string>& ids) const
{
    const std::lock_guard lock(_mutex);
    const auto now = _clock();
    Lookup lookup;
    for (const std::string& id : ids) {
        const auto entry = _entries.find(id);
        if (entry == _entries.end() || !isFresh(now - entry->second.loadedAt)) {
            lookup.missing.push_back(id);
        } else if (const auto& count = entry->second.count) {
            lookup.counts.emplace(id, *count);
        }
    }
    return lookup;
}

void BaseRuleCache::store(const BaseRuleResults& results)
{
    const std::lock_guard lock(_mutex);
    const auto now = _clock();
    for (const auto& [id, count] : results) {
        _entries.insert_or_assign(id, Entry{count, now});
    }
}

}  // namespace GitHub
