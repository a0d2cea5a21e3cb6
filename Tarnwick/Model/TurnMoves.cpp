#include "Tarnwick/Model/TurnMoves.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace Tarnwick {

using namespace PullRequestKit;

namespace {

class Update {
public:
    Update(KnownTurns& known, const RefreshedTurns& refreshed)
        : _known(known)
        , _refreshed(refreshed)
        , _isComparable(known.scope == refreshed.scope)
    {
        for (std::size_t place = 0; place < known.entries.size(); ++place) {
            _places.emplace(known.entries[place].id, place);
        }
    }

    void take(const PullRequest& pullRequest, Turn turn)
    {
        KnownTurns::Entry& entry = entryOf(pullRequest.id);
        const bool wasListed = _isComparable && entry.listedAt == _known.updatedAt;
        const auto before = wasListed ? entry.whose : std::nullopt;
        entry.listedAt = _refreshed.now;
        const auto head = headOf(pullRequest);
        const bool isUsers = turn.whose == Whose::you || turn.whose == Whose::ready;
        if (!head && turn.whose != Whose::you) {
            // Without facts of this version the turn is uncertain.
            entry.whose = before;
            return;
        }
        const bool hasMoved =
            _isComparable && (wasListed ? before && *before != turn.whose : !_refreshed.isFirst);
        if (isUsers && hasMoved && !isTold(entry, head)) {
            const TurnMove move{pullRequest, std::move(turn), head.value_or("")};
            if (_refreshed.toldOtherwise.contains(pullRequest.id)) {
                settle(entry, move);
            } else {
                entry.whose = before.value_or(Whose::others);
                _moves.push_back(move);
            }
            return;
        }
        if (head && entry.toldHead && entry.toldHead->empty() && before == turn.whose) {
            entry.toldHead = head;
        }
        entry.whose = turn.whose;
    }

    void keep(const PullRequestID& id)
    {
        KnownTurns::Entry& entry = entryOf(id);
        if (!_isComparable || entry.listedAt != _known.updatedAt) {
            entry.whose.reset();
        }
        entry.listedAt = _refreshed.now;
    }

    std::vector<TurnMove> moves() { return std::move(_moves); }

    static void settle(KnownTurns::Entry& entry, const TurnMove& move)
    {
        entry.whose = move.turn.whose;
        entry.toldHead = move.head;
    }

private:
    KnownTurns::Entry& entryOf(const PullRequestID& id)
    {
        const auto [found, isNew] = _places.try_emplace(id, _known.entries.size());
        if (isNew) {
            _known.entries.push_back({.id = id, .whose = {}, .toldHead = {}});
        }
        return _known.entries[found->second];
    }

    std::optional<std::string> headOf(const PullRequest& pullRequest) const
    {
        const auto found = _refreshed.sources.facts.find(pullRequest.id);
        const bool isKnown = found != _refreshed.sources.facts.end()
                             && found->second.updatedAt == pullRequest.updatedAt;
        return isKnown ? std::optional(found->second.headCommit) : std::nullopt;
    }

    static bool isTold(const KnownTurns::Entry& entry, const std::optional<std::string>& head)
    {
        return entry.toldHead && (entry.toldHead->empty() || !head || *entry.toldHead == *head);
    }

    KnownTurns& _known;
    const RefreshedTurns& _refreshed;
    bool _isComparable;
    std::unordered_map<PullRequestID, std::size_t> _places;
    std::vector<TurnMove> _moves;
};

}  // namespace

std::vector<TurnMove> KnownTurns::update(const RefreshedTurns& refreshed)
{
    TurnSources current = refreshed.sources;
    current.onlyCurrentFacts = true;
    std::vector<Turn> turns = turnsOf(refreshed.rows, current);
    Update update(*this, refreshed);
    for (std::size_t row = 0; row < refreshed.rows.size(); ++row) {
        update.take(refreshed.rows[row].pullRequest, std::move(turns[row]));
    }
    for (const PullRequestID& id : refreshed.muted) {
        update.keep(id);
    }
    scope = refreshed.scope;
    updatedAt = refreshed.now;
    std::erase_if(
        entries, [&](const Entry& entry) { return refreshed.now - entry.listedAt > memory; });
    return update.moves();
}

void KnownTurns::settle(const TurnMove& move)
{
    const auto entry = std::ranges::find(entries, move.pullRequest.id, &Entry::id);
    if (entry != entries.end()) {
        Update::settle(*entry, move);
    }
}

bool KnownTurns::rest()
{
    return !std::exchange(scope, {}).empty();
}

std::string scopeText(const NotificationScope& scope)
{
    std::string text;
    const auto add = [&](std::string_view part) { text.append(part).push_back('\n'); };
    const auto addAll = [&](const auto& values) {
        for (const auto value : values) {
            add(nameOf(value));
        }
        add("");
    };
    add(scope.account.value_or(""));
    add(nameOf(scope.reviewer));
    for (const std::string& repository : scope.repositories) {
        add(repository);
    }
    add("");
    addAll(scope.reviewFilters);
    addAll(scope.statuses);
    addAll(scope.checks);
    addAll(scope.mergeabilities);
    return text;
}

}  // namespace Tarnwick
