#include "Tarnwick/Model/WantedFacts.h"
#include "Tarnwick/PullRequestMenuModel.h"

#include <QCoro/QCoroFuture>

#include <utility>

namespace Tarnwick {

using namespace PullRequestKit;

void PullRequestMenuModel::followTurns()
{
    connect(&_facts, &FactsQuestions::factsChanged, this, [this] {
        _areFactsUnsaved = true;
        if (_settings.arrangement == Arrangement::byWhoseTurn) {
            rebuildRows();
        }
        Q_EMIT factsChanged();
    });
    connect(&_facts, &FactsQuestions::quotaTold, this, [this](const Quota& quota) {
        _areFactsUnsaved = true;
        _pollingRest.setQuota(quota);
    });
    connect(&_facts, &FactsQuestions::settled, this, &PullRequestMenuModel::factsSettled);
    connect(&_pollingRest, &PollingRest::quotaChanged, this, &PullRequestMenuModel::quotaChanged);
    connect(
        &_pollingRest,
        &PollingRest::restingQuotaChanged,
        this,
        &PullRequestMenuModel::restingQuotaChanged);
    connect(
        &_notifications,
        &PullRequestNotifications::turnSettled,
        this,
        [this](const TurnMove& move) {
            _knownTurns.settle(move);
            if (!_isDecidingTurns) {
                rememberTurns();
            }
        });
}

// Facts

bool PullRequestMenuModel::usesFacts() const
{
    return needsFacts(_settings, _parts.turns.has_value());
}

void PullRequestMenuModel::askForUsedFacts()
{
    if (usesFacts()) {
        _facts.ask();
    }
}

QCoro::Task<> PullRequestMenuModel::askForFacts()
{
    _facts.ask();
    const QFuture<void> answered = _facts.answered();
    co_await answered;
}

/// The refresh has come to its end but for the facts, which nothing waits for.
void PullRequestMenuModel::refreshFacts(std::unordered_set<PullRequestID> toldAsNew)
{
    recallTurns();
    if (_facts.setListed(_allPullRequests)) {
        _areFactsUnsaved = true;
    }
    _toldAsNew = std::move(toldAsNew);
    _areTurnsDue = true;
    if (!_settings.yourTurnNotificationsEnabled && _knownTurns.rest()) {
        rememberTurns();
    }
    if (usesFacts()) {
        _facts.ask();
    } else {
        factsSettled(false);
    }
}

void PullRequestMenuModel::factsSettled(bool hitSecondaryLimit)
{
    saveFacts();
    if (hitSecondaryLimit) {
        _pollingRest.refused();
    } else if (_areTurnsDue) {
        _pollingRest.granted();
    }
    if (std::exchange(_areTurnsDue, false) && _parts.turns
        && _settings.yourTurnNotificationsEnabled) {
        decideTurns();
    }
}

void PullRequestMenuModel::saveFacts()
{
    if (std::exchange(_areFactsUnsaved, false) && _parts.keepsList) {
        _snapshotWriter.save(
            PullRequestFactsFile::beside(_parts.cache), {_facts.facts(), _pollingRest.quota()});
    }
}

// Notifications

/// Before the first refresh is taken over: what the user was told when the program last ran.
void PullRequestMenuModel::recallTurns()
{
    if (_parts.turns && !std::exchange(_hasRecalledTurns, true)) {
        _knownTurns = _parts.turns->load();
    }
}

void PullRequestMenuModel::decideTurns()
{
    std::vector<PullRequestID> muted;
    for (const PullRequest& pullRequest : *_allPullRequests) {
        if (isMuted(sightOf(pullRequest))) {
            muted.push_back(pullRequest.id);
        }
    }
    _isDecidingTurns = true;
    _notifications.deliverTurns(_knownTurns.update(
        {.rows = *_rows,
         .sources = turnSources(),
         .scope = scopeText(notificationScope(_account, _settings)),
         .now = _parts.clock->now(),
         .isFirst = !std::exchange(_hasDecidedTurns, true),
         .toldOtherwise = std::exchange(_toldAsNew, {}),
         .muted = std::move(muted)}));
    _isDecidingTurns = false;
    rememberTurns();
}

void PullRequestMenuModel::rememberTurns()
{
    if (_parts.turns) {
        _snapshotWriter.save(*_parts.turns, _knownTurns);
    }
}

QCoro::Task<> PullRequestMenuModel::toggleYourTurnNotifications()
{
    return _notifications.toggleYourTurn();
}

}  // namespace Tarnwick
