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

/// Which news of a refresh the user is notified of, and what is kept of it for the next start.
/// Main thread only.
class RefreshNews final : public QObject {
    Q_OBJECT

public:
    struct Parts {
        PullRequestNotifications& notifications;
        SnapshotWriter& writer;
        const Settings& settings;
        std::optional<BlockedPullRequestsFile> blocked;  ///< Without it, nothing is kept.
        std::optional<KnownTurnsFile> turns;  ///< Without it, nobody is told whose turn it is.
    };

    /// Requires: the parts outlive this object.
    explicit RefreshNews(Parts parts);

    bool tellsOfTurns() const { return _parts.turns.has_value(); }

    /// To be called before a refresh is taken over. The first call brings back what was kept, and
    /// what is listed as blocked, which `tarnwick list` may have found since.
    void recall(
        const std::vector<PullRequestKit::PullRequest>& listed,
        std::optional<PullRequestKit::Date> listedAt);

    /// A refresh was taken over: tells of new and of unblocked pull requests. `inSight` are the
    /// listed ones that are shown.
    void tell(
        const std::vector<PullRequestKit::PullRequestRow>& inSight,
        const std::vector<PullRequestKit::PullRequest>& listed,
        NewPullRequestBaseline baseline);

    /// The facts of that refresh are known: tells of turns, where the user wants it.
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
    bool _isTelling = false;  ///< What is settled meanwhile is kept at the end.
    std::optional<NewPullRequestBaseline> _baseline;
    BlockedPullRequests _blocked;
    bool _hasBlockedOnDisk = false;
    KnownTurns _knownTurns;
    bool _hasDecidedTurns = false;
    std::unordered_set<PullRequestKit::PullRequestID> _toldAsNew;  ///< By the last refresh.
};

}  // namespace Tarnwick
