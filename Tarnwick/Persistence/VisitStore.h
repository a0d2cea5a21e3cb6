#pragma once

#include "PullRequestKit/PullRequest.h"
#include "Tarnwick/Persistence/DefaultsStore.h"

#include <functional>

namespace Tarnwick {

/// Remembers per pull request when the user last opened it from the menu, each date under a key of
/// its own in the defaults. Nothing is ever forgotten. Main thread only.
class VisitStore {
public:
    /// The prefix of the program's own store. Stored: do not rename.
    static inline const QString programPrefix = QStringLiteral("lastVisitedAt.");

    /// Every key begins with `prefix`; `now` tells the current time.
    /// Requires: `defaults` outlives the store.
    VisitStore(DefaultsStore& defaults, QString prefix, std::function<PullRequestKit::Date()> now);

    /// Nothing when the pull request was never visited, or its key holds something else.
    std::optional<PullRequestKit::Date> lastVisited(const PullRequestKit::PullRequestID& id) const;

    void recordVisit(const PullRequestKit::PullRequestID& id);

    /// Whether the pull request is unchanged since the user last opened it.
    bool isVisited(const PullRequestKit::PullRequest& pullRequest) const;

private:
    QString keyOf(const PullRequestKit::PullRequestID& id) const;

    DefaultsStore& _defaults;
    QString _prefix;
    std::function<PullRequestKit::Date()> _now;
};

}  // namespace Tarnwick
