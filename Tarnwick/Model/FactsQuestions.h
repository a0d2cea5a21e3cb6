#pragma once

#include "PullRequestKit/PullRequestProvider.h"
#include "PullRequestKit/PullRequestRow.h"
#include "Tarnwick/Async/CancellableTask.h"
#include "Tarnwick/Async/Clock.h"

#include <QFuture>
#include <QObject>
#include <QPromise>

#include <functional>
#include <memory>
#include <unordered_set>
#include <vector>

namespace Tarnwick {

/// Requests missing facts of the listed pull requests, one request at a time, and stores the
/// answers on disk at the end. Facts not received are not requested again before the next refresh;
/// facts of older versions are then dropped. Main thread only.
class FactsQuestions final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FactsQuestions)

public:
    struct Sources {
        std::shared_ptr<const PullRequestKit::PullRequestProvider> provider;
        std::shared_ptr<Clock> clock;
        std::function<const std::vector<PullRequestKit::PullRequestRow>&()> rows;
        /// Whether the settings need facts.
        std::function<bool()> isUseful;
        /// Stores the facts for the next start.
        std::function<void(const PullRequestKit::SharedFacts& facts)> save;
    };

    /// Requires: every source is set.
    explicit FactsQuestions(Sources sources);

    /// Cancels; does not wait.
    ~FactsQuestions() override;

    const PullRequestKit::SharedFacts& facts() const { return _facts; }

    /// Sets the stored facts of an earlier run.
    void recall(PullRequestKit::SharedFacts facts) { _facts = std::move(facts); }

    /// Null when unknown.
    const PullRequestKit::PullRequestFacts* of(const PullRequestKit::PullRequestID& id) const;

    /// Call after a refresh, with visible and hidden pull requests. Drops the facts of all others.
    /// Requests missing facts if they are useful; otherwise `settled` follows at once.
    void setListed(std::shared_ptr<const std::vector<PullRequestKit::PullRequest>> listed);

    /// Requests missing facts until none are missing. Does nothing before the first list.
    void ask();
    void askWhereUseful();

    void cancel();

    /// Cancels and saves unsaved facts.
    void stop();

    /// Finishes when no request is running.
    QFuture<void> answered() const { return _answered; }

Q_SIGNALS:
    void factsChanged();
    void quotaTold(const PullRequestKit::Quota& quota);
    /// No facts are missing, or GitHub refuses. `isRefreshed`: the first time after a refresh.
    void settled(bool hitSecondaryLimit, bool isRefreshed);

private:
    QCoro::Task<> askAll(std::stop_token stopToken);
    void take(PullRequestKit::FactsAnswer answer);
    void setFacts(PullRequestKit::FactsByID facts);
    void forgetUnlisted();
    void forgetOutdated();
    void finish();
    void settle(bool hitSecondaryLimit);
    void save();

    Sources _sources;
    PullRequestKit::SharedFacts _facts;
    std::shared_ptr<const std::vector<PullRequestKit::PullRequest>> _listed;
    std::unordered_set<PullRequestKit::PullRequestID> _asked;  ///< Since the last refresh.
    bool _isAsking = false;
    bool _isUnsaved = false;
    bool _isRefreshed = false;  ///< Not yet settled.
    QPromise<void> _done;
    QFuture<void> _answered;
    CancellableTask _task;
};

}  // namespace Tarnwick
