#include "Tarnwick/Persistence/VisitStore.h"

#include "Tarnwick/Persistence/SeenTexts.h"

#include <algorithm>
#include <set>
#include <utility>

namespace Tarnwick {

using namespace PullRequestKit;

namespace {

// Stored: do not rename.
const QString seenPrefix = QStringLiteral("lastSeen.");
const QString listedPrefix = QStringLiteral("lastListedAt.");

constexpr std::chrono::days toTheDay{1};

QString nameOfVisit(const PullRequestID& id)
{
    return QString::fromStdString(id.storageKey());
}

}  // namespace

VisitStore::VisitStore(DefaultsStore& defaults, QString prefix, std::function<Date()> now)
    : _defaults(defaults)
    , _prefix(std::move(prefix))
    , _now(std::move(now))
{}

std::optional<Date> VisitStore::lastVisited(const PullRequestID& id) const
{
    const std::optional<Visit>& known = visit(id);
    return known ? std::optional(known->at) : std::nullopt;
}

void VisitStore::recordVisit(const PullRequestID& id)
{
    write(id, Visit{_now(), std::nullopt});
}

void VisitStore::recordVisit(const PullRequestID& id, const SeenPullRequest& seen)
{
    write(id, Visit{_now(), seen});
}

void VisitStore::forgetVisit(const PullRequestID& id)
{
    write(id, std::nullopt);
}

void VisitStore::write(const PullRequestID& id, const std::optional<Visit>& visit)
{
    const QString name = nameOfVisit(id);
    _defaults.change([&] {
        removeVisit(name);
        if (visit) {
            writeDate(_defaults, _prefix + name, visit->at);
        }
        if (visit && visit->seen) {
            writeTextList(_defaults, seenPrefix + name, seenTexts(*visit->seen));
        }
    });
    _known.insert_or_assign(id, visit);
}

bool VisitStore::isVisited(const PullRequest& pullRequest) const
{
    const std::optional<Visit>& known = visit(pullRequest.id);
    if (!known) {
        return false;
    }
    // The clock was set back since, so the time of the visit says nothing.
    if (known->at > _now() && known->seen) {
        return pullRequest.updatedAt <= known->seen->updatedAt;
    }
    return known->at >= pullRequest.updatedAt;
}

SinceVisit VisitStore::sinceVisit(
    const PullRequest& pullRequest, const PullRequestFacts* facts) const
{
    const std::optional<Visit>& known = visit(pullRequest.id);
    if (!known || !known->seen) {
        return {};
    }
    auto changes = changesBetween(*known->seen, seenNow(pullRequest, facts));
    return changes.empty() ? SinceVisit() : SinceVisit{known->at, std::move(changes)};
}

const std::optional<VisitStore::Visit>& VisitStore::visit(const PullRequestID& id) const
{
    if (const std::uint64_t revision = _defaults.revision(); revision != _revision) {
        _known.clear();
        _revision = revision;
    }
    const auto found = _known.find(id);
    return found != _known.end() ? found->second
                                 : _known.emplace(id, read(nameOfVisit(id))).first->second;
}

std::optional<VisitStore::Visit> VisitStore::read(const QString& name) const
{
    const auto at = readDate(_defaults, _prefix + name);
    if (!at) {
        return std::nullopt;
    }
    const auto texts = readTextList(_defaults, seenPrefix + name);
    return Visit{*at, texts ? seenFromTexts(*texts) : std::nullopt};
}

void VisitStore::removeVisit(const QString& name)
{
    for (const QString& prefix : {_prefix, seenPrefix, listedPrefix}) {
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
    const std::vector<QString> keys = _defaults.keys(_prefix);
    if (keys.empty()) {
        return;
    }
    _defaults.change([&] {
        std::set<QString> others(keys.begin(), keys.end());
        for (const PullRequest& pullRequest : pullRequests) {
            if (visit(pullRequest.id)) {
                noteVisit(pullRequest);
                others.erase(_prefix + nameOfVisit(pullRequest.id));
            }
        }
        for (const QString& key : others) {
            forgetInTime(key.mid(_prefix.size()));
        }
    });
}

void VisitStore::noteVisit(const PullRequest& listed)
{
    const Date now = _now();
    const QString name = nameOfVisit(listed.id);
    Visit known = *visit(listed.id);
    if (known.at > now) {
        const bool wasUpdated = known.seen && listed.updatedAt > known.seen->updatedAt;
        known.at = wasUpdated ? known.seen->updatedAt : now;
        writeDate(_defaults, _prefix + name, known.at);
        _known.insert_or_assign(listed.id, known);
    }
    const Date listedAt = readDate(_defaults, listedPrefix + name).value_or(known.at);
    if (std::chrono::abs(now - std::max(known.at, listedAt)) >= toTheDay) {
        writeDate(_defaults, listedPrefix + name, now);
    }
}

/// Of what is not listed. A time to come, after which the clock was set back, counts as now.
void VisitStore::forgetInTime(const QString& name)
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
