#pragma once

#include "PullRequestKit/SeenPullRequest.h"
#include "Tarnwick/Persistence/DefaultsStore.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Tarnwick {

/// What changed since the user last opened a pull request.
struct SinceVisit {
    PullRequestKit::Date visitedAt{};
    std::vector<PullRequestKit::Change> changes;  ///< Empty when unknown.

    bool operator==(const SinceVisit&) const = default;
};

/// Records when the user last opened each pull request, and in which state. Pull requests not
/// listed for `memory` are forgotten. Main thread only.
class VisitStore {
public:
    static constexpr std::chrono::days memory{90};

    /// Stored: do not rename.
    static constexpr std::string_view programPrefix = "lastVisitedAt.";

    /// `prefix` precedes each key; `now` is the clock. Requires: `defaults` outlives the store.
    VisitStore(
        DefaultsStore& defaults,
        std::string_view prefix,
        std::function<PullRequestKit::Date()> now);

    /// Nothing without a visit or with an invalid value.
    std::optional<PullRequestKit::Date> lastVisited(const PullRequestKit::PullRequestID& id) const;

    void recordVisit(
        const PullRequestKit::PullRequestID& id,
        const std::optional<PullRequestKit::SeenPullRequest>& seen = {})
    {
        write(id, Visit{_now(), seen});
    }

    void forgetVisit(const PullRequestKit::PullRequestID& id) { write(id, std::nullopt); }

    /// Whether the pull request has not been updated since the last visit.
    bool isVisited(const PullRequestKit::PullRequest& pullRequest) const;

    /// `facts` may be null. Nothing has changed without a visit or if its state is unknown.
    SinceVisit sinceVisit(
        const PullRequestKit::PullRequest& pullRequest,
        const PullRequestKit::PullRequestFacts* facts) const;

    /// Call with the pull requests of each refresh. Once a day it marks them as listed and forgets
    /// those not listed for long. Also corrects visits in the future, after the clock was set back.
    void noteListed(std::span<const PullRequestKit::PullRequest> pullRequests);

private:
    struct Visit {
        PullRequestKit::Date at;
        std::optional<PullRequestKit::SeenPullRequest> seen;
    };

    using Visits = std::unordered_map<std::string, Visit>;

    const Visits& visits() const;
    const Visit* visit(const PullRequestKit::PullRequestID& id) const;
    void write(const PullRequestKit::PullRequestID& id, const std::optional<Visit>& visit);
    std::optional<Visit> read(const std::string& name) const;
    void removeVisit(const std::string& name);
    void noteVisit(const PullRequestKit::PullRequest& listed);
    void forgetInTime(const std::string& name);

    DefaultsStore& _defaults;
    std::string _prefix;
    std::function<PullRequestKit::Date()> _now;
    std::optional<PullRequestKit::Date> _notedAt;
    /// By storage key. Cached, because each row of the list needs one.
    mutable Visits _visits;
    mutable std::optional<std::uint64_t> _revision;  ///< The revision of `_visits`.
};

}  // namespace Tarnwick
