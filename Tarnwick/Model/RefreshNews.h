#pragma once

#include "Tarnwick/Model/BlockedPullRequests.h"
#include "Tarnwick/Model/NotificationDecisions.h"
#include "Tarnwick/Model/PullRequestNotifications.h"
#include "Tarnwick/Model/TurnMoves.h"
#include "Tarnwick/Persistence/BlockedPullRequestsFile.h"
#include "Tarnwick/Persistence/KnownTurnsFile.h"
#include "Tarnwick/Persistence/SnapshotWriter.h"

#include <QObject>

#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace Tarnwick {

/// Decides what to notify of, and stores what the next start needs. Main thread only.
class RefreshNews final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        PullRequestNotifications& notifications;
        SnapshotWriter& writer;
        const Settings& settings;
        std::optional<BlockedPullRequestsFile> blocked;  ///< Without it, nothing is stored.
        std::optional<KnownTurnsFile> turns;             ///< Without it, turns are not reported.
    };

    /// Requires: the parts outlive it.
    explicit RefreshNews(Parts parts);

    bool tellsOfTurns() const { return _parts.turns.has_value(); }

    /// Call before a refresh is applied. The first call loads what was stored, and the blocked ones
    /// among `listed`, which `tarnwick list` may have found since.
    void recall(
        const std::vector<PullRequestKit::PullRequest>& listed,
        std::optional<PullRequestKit::Date> listedAt);

    /// Call after a refresh was applied: reports new and unblocked pull requests.
    void tell(
        const std::vector<PullRequestKit::PullRequestRow>& inSight,
        const std::vector<PullRequestKit::PullRequest>& listed,
        NewPullRequestBaseline baseline);

    /// Call once the facts of that refresh are known: reports turns if the user wants it.
    void tellTurns(
        const std::vector<PullRequestKit::PullRequestRow>& inSight,
        const TurnSources& sources,
        const std::optional<std::string>& account,
        PullRequestKit::Date now);

private:
    std::vector<PullRequestKit::PullRequest> unblockedToTell(
        const std::vector<PullRequestKit::PullRequest>& listed, PullRequestKit::Date now);
    bool isMuted(const PullRequestKit::PullRequest& pullRequest) const;
    void keepBlocked();
    void keepTurns();

    Parts _parts;
    bool _hasRecalled = false;
    bool _isTelling = false;  ///< Changes are stored at the end.
    std::optional<NewPullRequestBaseline> _baseline;
    BlockedPullRequests _blocked;
    bool _hasBlockedOnDisk = false;
    KnownTurns _knownTurns;
    bool _hasDecidedTurns = false;
    std::unordered_set<PullRequestKit::PullRequestID> _toldAsNew;  ///< By the last refresh.
};

}  // namespace Tarnwick
