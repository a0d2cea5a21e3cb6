#include "Tarnwick/Model/RefreshNews.h"

#include "Tarnwick/Model/RowFilter.h"

#include <utility>

namespace Tarnwick {

using namespace PullRequestKit;

RefreshNews::RefreshNews(Parts parts)
    : _parts(std::move(parts))
{
    using Notifications = PullRequestNotifications;
    connect(
        &_parts.notifications,
        &Notifications::unblockedSettled,
        this,
        [this](const PullRequestID& id) {
            _blocked.settle(id);
            if (!_isTelling) {
                keepBlocked();
            }
        });
    connect(&_parts.notifications, &Notifications::turnSettled, this, [this](const TurnMove& move) {
        _knownTurns.settle(move);
        if (!_isTelling) {
            keepTurns();
        }
    });
}

void RefreshNews::recall(const std::vector<PullRequest>& listed, std::optional<Date> listedAt)
{
    if (std::exchange(_hasRecalled, true)) {
        return;
    }
    if (_parts.blocked) {
        _blocked = _parts.blocked->load();
        _hasBlockedOnDisk = !_blocked.entries.empty();
    }
    if (listedAt) {
        _blocked.learn(listed, *listedAt);
    }
    if (_parts.turns) {
        _knownTurns = _parts.turns->load();
    }
}

void RefreshNews::tell(
    const std::vector<PullRequestRow>& inSight,
    const std::vector<PullRequest>& listed,
    NewPullRequestBaseline baseline)
{
    auto appeared = newPullRequests(inSight, baseline.scope, _baseline);
    _toldAsNew.clear();
    for (const PullRequest& pullRequest : appeared) {
        if (_parts.settings.newPullRequestNotificationsEnabled) {
            _toldAsNew.insert(pullRequest.id);
        }
    }
    const Date now = baseline.refreshedAt;
    _baseline = std::move(baseline);
    _isTelling = true;
    _parts.notifications.deliver({std::move(appeared), unblockedToTell(listed, now)});
    _isTelling = false;
    keepBlocked();
    if (!_parts.settings.yourTurnNotificationsEnabled && _knownTurns.rest()) {
        keepTurns();
    }
}

void RefreshNews::tellTurns(
    const std::vector<PullRequestRow>& inSight,
    const TurnSources& sources,
    const std::optional<std::string>& account,
    Date now)
{
    if (!_parts.turns || !_parts.settings.yourTurnNotificationsEnabled) {
        return;
    }
    std::vector<PullRequestID> muted;
    for (const PullRequest& pullRequest : sources.listed) {
        if (isMuted(pullRequest)) {
            muted.push_back(pullRequest.id);
        }
    }
    _isTelling = true;
    _parts.notifications.deliverTurns(_knownTurns.update(
        {.rows = inSight,
         .sources = sources,
         .scope = scopeText(notificationScope(account, _parts.settings)),
         .now = now,
         .isFirst = !std::exchange(_hasDecidedTurns, true),
         .toldOtherwise = std::exchange(_toldAsNew, {}),
         .muted = std::move(muted)}));
    _isTelling = false;
    keepTurns();
}

/// Muted pull requests are left out, and are not reported later either.
std::vector<PullRequest> RefreshNews::unblockedToTell(
    const std::vector<PullRequest>& listed, Date now)
{
    std::vector<PullRequest> unblocked = _blocked.update(listed, now);
    std::erase_if(unblocked, [this](const PullRequest& pullRequest) {
        if (!isMuted(pullRequest)) {
            return false;
        }
        _blocked.settle(pullRequest.id);
        return true;
    });
    return unblocked;
}

bool RefreshNews::isMuted(const PullRequest& pullRequest) const
{
    return Tarnwick::isMuted(sightOf(pullRequest, _parts.settings));
}

void RefreshNews::keepBlocked()
{
    const bool hasSome = !_blocked.entries.empty();
    if (_parts.blocked && (std::exchange(_hasBlockedOnDisk, hasSome) || hasSome)) {
        _parts.writer.save(*_parts.blocked, _blocked);
    }
}

void RefreshNews::keepTurns()
{
    if (_parts.turns) {
        _parts.writer.save(*_parts.turns, _knownTurns);
    }
}

}  // namespace Tarnwick
