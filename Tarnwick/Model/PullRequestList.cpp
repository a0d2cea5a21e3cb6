#include "Tarnwick/Model/PullRequestList.h"

#include <algorithm>
#include <utility>

namespace Tarnwick {

using namespace PullRequestKit;

PullRequestList::PullRequestList(const Settings& settings, Sources sources)
    : _settings(settings)
    , _sources(std::move(sources))
{}

const PullRequest* PullRequestList::find(const PullRequestID& id) const
{
    const auto found = std::ranges::find(*_all, id, &PullRequest::id);
    return found == _all->end() ? nullptr : &*found;
}

const PullRequest* PullRequestList::find(const Url& page) const
{
    const auto found = std::ranges::find(*_all, page, &PullRequest::url);
    return found == _all->end() ? nullptr : &*found;
}

TurnSources PullRequestList::turnSources() const
{
    return {*_all, *_details, _sources.facts(), _sources.login()};
}

std::shared_ptr<const ArrangedRows> PullRequestList::arrangedWithHidden() const
{
    return std::make_shared<const ArrangedRows>(Tarnwick::arranged(
        _settings.arrangement,
        rowsWithHidden(*_all, _settings),
        turnSources(),
        [this](const PullRequest& pullRequest) { return sightOf(pullRequest) == Sight::inSight; }));
}

void PullRequestList::set(
    SharedPullRequests all, ArrangedRows arranged, HiddenCounts hidden, SharedDetails details)
{
    _all = std::move(all);
    const bool areOtherDetails = *_details != *details;
    if (areOtherDetails) {
        _details = std::move(details);
    }
    if (!show(std::move(arranged), hidden) && areOtherDetails) {
        Q_EMIT detailsChanged();
    }
}

void PullRequestList::rebuild()
{
    FilteredRows list = filteredRows(*_all, _settings);
    show(
        Tarnwick::arranged(_settings.arrangement, std::move(list.rows), turnSources()),
        list.hidden);
}

/// Returns whether the rows changed.
bool PullRequestList::show(ArrangedRows arranged, HiddenCounts hidden)
{
    const HiddenCounts previous = std::exchange(_hidden, hidden);
    const bool areOtherRows = _arranged->rows != arranged.rows;
    const bool areOtherTurns =
        _arranged->turns != arranged.turns || _arranged->groups != arranged.groups;
    if (areOtherRows || areOtherTurns) {
        _arranged = std::make_shared<const ArrangedRows>(std::move(arranged));
        Q_EMIT areOtherRows ? rowsChanged() : turnsChanged();
    }
    if (previous.total() > 0 || hidden.total() > 0) {
        Q_EMIT hiddenChanged();
    }
    return areOtherRows;
}

}  // namespace Tarnwick
