#include "Tarnwick/Persistence/VisitStore.h"

#include "Tarnwick/Persistence/SeenTexts.h"

#include <algorithm>
#include <set>
#include <utility>

namespace Tarnwick {

using namespace PullRequestKit;

namespace {

// Stored: do not rename.
const std::string seenPrefix = "lastSeen.";
const std::string listedPrefix = "lastListedAt.";

constexpr std::chrono::days toTheDay{1};

}  // namespace

VisitStore::VisitStore(DefaultsStore& defaults, std::string_view prefix, std::function<Date()> now)
    : _defaults(defaults)
    , _prefix(prefix)
    , _now(std::move(now))
{}

std::optional<Date> VisitStore::lastVisited(const PullRequestID& id) const
{
    const Visit* const known = visit(id);
    return known != nullptr ? std::optional(known->at) : std::nullopt;
}

void VisitStore::write(const PullRequestID& id, const std::optional<Visit>& visit)
{
    const std::string name = id.storageKey();
    _defaults.change([&] {
        removeVisit(name);
        if (visit) {
            writeDate(_defaults, _prefix + name, visit->at);
        }
        if (visit && visit->seen) {
            writeTextList(_defaults, seenPrefix + name, seenTexts(*visit->seen));
        }
    });
    _revision.reset();
}

bool VisitStore::isVisited(const PullRequest& pullRequest) const
{
    const Visit* const known = visit(pullRequest.id);
    if (known == nullptr) {
        return false;
    }
    // A visit in the future: the clock was set back.
    if (known->at > _now() && known->seen) {
        return pullRequest.updatedAt <= known->seen->updatedAt;
    }
    return known->at >= pullRequest.updatedAt;
}

SinceVisit VisitStore::sinceVisit(
    const PullRequest& pullRequest, const PullRequestFacts* facts) const
{
    const Visit* const known = visit(pullRequest.id);
    if (known == nullptr || !known->seen) {
        return {};
    }
    auto changes = changesBetween(*known->seen, seenNow(pullRequest, facts));
    return changes.empty() ? SinceVisit() : SinceVisit{known->at, std::move(changes)};
}

const VisitStore::Visits& VisitStore::visits() const
{
    if (const std::uint64_t revision = _defaults.revision(); revision != _revision) {
        _visits.clear();
        for (const std::string& key : _defaults.keys(_prefix)) {
            const std::string name = key.substr(_prefix.size());
            if (const auto visit = read(name)) {
                _visits.emplace(name, *visit);
            }
        }
        _revision = revision;
    }
    return _visits;
}

const VisitStore::Visit* VisitStore::visit(const PullRequestID& id) const
{
    const auto found = visits().find(id.storageKey());
    return found == _visits.end() ? nullptr : &found->second;
}

std::optional<VisitStore::Visit> VisitStore::read(const std::string& name) const
{
    const auto at = readDate(_defaults, _prefix + name);
    if (!at) {
        return std::nullopt;
    }
    const auto texts = readTextList(_defaults, seenPrefix + name);
    return Visit{*at, texts ? seenFromTexts(*texts) : std::nullopt};
}

void VisitStore::removeVisit(const std::string& name)
{
    for (const std::string& prefix : {_prefix, seenPrefix, listedPrefix}) {
        if (_defaults.value(prefix + name)) {
            _defaults.remove(prefix + name);
        }
    }
}

void VisitStore::noteListed(std::span<const PullRequest> pullRequests)
{
    const Date now = _now();
    if (_notedAt && now >= *_notedAt && now - *_notedAt < toTheDay) {
        return;
    }
    _notedAt = now;
    const std::vector<std::string> keys = _defaults.keys(_prefix);
    if (keys.empty()) {
        return;
    }
    _defaults.change([&] {
        std::set<std::string> others(keys.begin(), keys.end());
        for (const PullRequest& pullRequest : pullRequests) {
            if (visit(pullRequest.id) != nullptr) {
                noteVisit(pullRequest);
                others.erase(_prefix + pullRequest.id.storageKey());
            }
        }
        for (const std::string& key : others) {
            forgetInTime(key.substr(_prefix.size()));
        }
    });
    _revision.reset();
}

void VisitStore::noteVisit(const PullRequest& listed)
{
    const Date now = _now();
    const std::string name = listed.id.storageKey();
    Visit known = *visit(listed.id);
    if (known.at > now) {
        const bool wasUpdated = known.seen && listed.updatedAt > known.seen->updatedAt;
        known.at = wasUpdated ? known.seen->updatedAt : now;
        writeDate(_defaults, _prefix + name, known.at);
    }
    const Date listedAt = readDate(_defaults, listedPrefix + name).value_or(known.at);
    if (std::chrono::abs(now - std::max(known.at, listedAt)) >= toTheDay) {
        writeDate(_defaults, listedPrefix + name, now);
    }
}

/// Forgets visits not listed for long. A time in the future, after the clock was set back, counts
/// as now.
void VisitStore::forgetInTime(const std::string& name)
{
    const auto at = readDate(_defaults, _prefix + name);
    if (!at) {
        return;
    }
    const Date now = _now();
    const Date listedAt = std::max(*at, readDate(_defaults, listedPrefix + name).value_or(*at));
    if (listedAt > now) {
        writeDate(_defaults, _prefix + name, std::min(*at, now));
        writeDate(_defaults, listedPrefix + name, now);
    } else if (now - listedAt > memory) {
        removeVisit(name);
    }
}

}  // namespace Tarnwick
