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

/// The facts of the listed pull requests: it asks for those that are wanting, one question after
/// the other, and keeps the answers, on disk when it has come to an end. What is not told is not
/// asked for again before the next refresh; what was known of an earlier version of the pull
/// request is forgotten then. Main thread only.
class FactsQuestions final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FactsQuestions)

public:
    struct Sources {
        std::shared_ptr<const PullRequestKit::PullRequestProvider> provider;
        std::shared_ptr<Clock> clock;
        /// What is in the list at the moment.
        std::function<const std::vector<PullRequestKit::PullRequestRow>&()> rows;
        /// Whether they have a use by the settings.
        std::function<bool()> isUseful;
        /// Has the facts kept for the next start, and the quota that was told with them.
        std::function<void(const PullRequestKit::SharedFacts& facts)> save;
    };

    /// Requires: each of the sources.
    explicit FactsQuestions(Sources sources);

    /// Asks what runs to stop, and waits for nothing.
    ~FactsQuestions() override;

    /// Not null.
    const PullRequestKit::SharedFacts& facts() const { return _facts; }

    /// Takes over what an earlier run has kept.
    void recall(PullRequestKit::SharedFacts facts);

    /// Null where they are not known.
    const PullRequestKit::PullRequestFacts* of(const PullRequestKit::PullRequestID& id) const;

    /// A refresh has listed these pull requests, in sight or not. The facts of all others are
    /// forgotten; what is wanting is asked for where it has a use, and settled otherwise.
    void setListed(std::shared_ptr<const std::vector<PullRequestKit::PullRequest>> listed);

    /// Asks for what is wanting, and goes on until nothing is. Nothing happens before there is a
    /// list. While it asks already, it comes to what is wanting now by itself.
    void ask();
    void askWhereUseful();

    void cancel();

    /// Cancels and saves what has not been saved yet.
    void stop();

    /// Finished when nothing is being asked for.
    QFuture<void> answered() const { return _answered; }

Q_SIGNALS:
    void factsChanged();
    void quotaTold(const PullRequestKit::Quota& quota);
    /// Nothing is left to ask for until the next refresh, or GitHub refuses to say. `isRefreshed`
    /// where it is the first time since a refresh.
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
    bool _isRefreshed = false;  ///< And not settled since.
    QPromise<void> _done;
    QFuture<void> _answered;
    CancellableTask _task;
};

}  // namespace Tarnwick
