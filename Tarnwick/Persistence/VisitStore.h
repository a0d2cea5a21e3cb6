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
    std::vector<PullRequestKit::Change> changes;  ///< Empty when none can be named.

    bool operator==(const SinceVisit&) const = default;
};

/// Remembers per pull request when the user last opened it from the menu and what was to be seen of
/// it, under keys of its own in the defaults. What has not been listed for `memory` is forgotten.
/// Main thread only.
class VisitStore {
public:
    static constexpr std::chrono::days memory{90};

    /// The prefix of the program's own store. Stored: do not rename.
    static constexpr std::string_view programPrefix = "lastVisitedAt.";

    /// Every key of a time begins with `prefix`; `now` tells the current time.
    /// Requires: `defaults` outlives the store.
    VisitStore(
        DefaultsStore& defaults,
        std::string_view prefix,
        std::function<PullRequestKit::Date()> now);

    /// Nothing when the pull request was never visited, or its key holds something else.
    std::optional<PullRequestKit::Date> lastVisited(const PullRequestKit::PullRequestID& id) const;

    /// A visit of which nothing more is known.
    void recordVisit(const PullRequestKit::PullRequestID& id);

    /// A visit that has seen this.
    void recordVisit(
        const PullRequestKit::PullRequestID& id, const PullRequestKit::SeenPullRequest& seen);

    /// As if the pull request had never been visited.
    void forgetVisit(const PullRequestKit::PullRequestID& id);

    /// Whether the pull request has not been updated since the user last opened it.
    bool isVisited(const PullRequestKit::PullRequest& pullRequest) const;

    /// `facts` may be null. Without a visit, and where it is not known what it saw, nothing has
    /// changed.
    SinceVisit sinceVisit(
        const PullRequestKit::PullRequest& pullRequest,
        const PullRequestKit::PullRequestFacts* facts) const;

    /// To be called with what each refresh lists. Once a day it notes what is still listed and
    /// forgets the rest in time. A visit at a time to come, after which the clock was set back,
    /// gets one that is over.
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
    /// By storage key, read at once: each row of each list asks for one.
    mutable Visits _visits;
    mutable std::optional<std::uint64_t> _revision;  ///< At which they were read.
};

}  // namespace Tarnwick
