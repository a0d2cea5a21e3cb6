#include "Tarnwick/Model/Arrangement.h"

#include "PullRequestKit/TurnRules.h"

#include <algorithm>
#include <array>
#include <optional>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace Tarnwick {

using namespace PullRequestKit;

namespace {

struct BranchOf {
    const PullRequestID& id;
    const BranchReference& branch;

    bool operator==(const BranchOf& other) const
    {
        const auto all = [](const BranchOf& one) {
            return std::tie(
                one.branch.name,
                one.branch.repository,
                one.id.repository,
                one.id.host,
                one.id.provider);
        };
        return all(*this) == all(other);
    }
};

struct BranchOfHash {
    std::size_t operator()(const BranchOf& key) const { return RecordHash{}(key.branch); }
};

class Bases {
public:
    /// Requires: `listed` and the rows outlive it.
    Bases(
        std::span<const PullRequestRow> rows,
        std::span<const PullRequest> listed,
        std::string_view author)
    {
        for (const PullRequestRow& row : rows) {
            if (isSameLogin(row.pullRequest.author, author)) {
                _heads.try_emplace({row.id(), row.pullRequest.base});
            }
        }
        for (const PullRequest& pullRequest : listed) {
            if (_heads.empty()) {
                break;
            }
            const auto found = _heads.find({pullRequest.id, pullRequest.head});
            if (found != _heads.end()) {
                found->second.add(pullRequest.id.number);
            }
        }
    }

    /// The lowest number of another pull request whose head is the base of this one. Requires: a
    /// pull request by the author.
    std::optional<std::int64_t> numberBelow(const PullRequest& pullRequest) const
    {
        const auto found = _heads.find({pullRequest.id, pullRequest.base});
        if (found == _heads.end()) {
            return std::nullopt;
        }
        const auto& [first, second] = found->second;
        return first != pullRequest.id.number ? first : second;
    }

private:
    struct Lowest {
        std::optional<std::int64_t> first;
        std::optional<std::int64_t> second;

        void add(std::int64_t number)
        {
            if (!first || number < *first) {
                second = std::exchange(first, number);
            } else if (number != *first && (!second || number < *second)) {
                second = number;
            }
        }
    };

    /// By the base branches of the author's pull requests.
    std::unordered_map<BranchOf, Lowest, BranchOfHash> _heads;
};

template<typename Known>
const typename Known::mapped_type* findIn(const Known& known, const PullRequestID& id)
{
    const auto found = known.find(id);
    return found != known.end() ? &found->second : nullptr;
}

const PullRequestFacts* factsOf(const PullRequest& pullRequest, const TurnSources& sources)
{
    const PullRequestFacts* const facts = findIn(sources.facts, pullRequest.id);
    const bool isOfAnother = facts != nullptr && facts->updatedAt != pullRequest.updatedAt;
    return isOfAnother && sources.onlyCurrentFacts ? nullptr : facts;
}

/// A row of depth 0 and its descendants.
struct Stack {
    std::size_t firstRow = 0;
    std::size_t end = 0;
    Whose whose = Whose::others;
};

struct InSight {
    const std::vector<bool>& rows;  ///< Empty when all are.

    bool operator()(std::size_t row) const { return rows.empty() || rows[row]; }
};

Whose earnedBy(const Stack& stack, const std::vector<Turn>& turns, const InSight& isInSight)
{
    std::optional<Whose> inSight;
    Whose any = Whose::others;
    for (std::size_t row = stack.firstRow; row < stack.end; ++row) {
        any = std::min(any, turns[row].whose);
        if (isInSight(row)) {
            inSight = std::min(inSight.value_or(Whose::others), turns[row].whose);
        }
    }
    return inSight.value_or(any);
}

std::vector<Stack> stacksOf(
    const std::vector<PullRequestRow>& rows,
    const std::vector<Turn>& turns,
    const InSight& isInSight)
{
    std::vector<Stack> stacks;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (row == 0 || rows[row].depth == 0) {
            stacks.push_back({.firstRow = row});
        }
        stacks.back().end = row + 1;
    }
    for (Stack& stack : stacks) {
        stack.whose = earnedBy(stack, turns, isInSight);
    }
    return stacks;
}

/// Permutes in place: `order[place]` moves to `place`. Copying large values would cost more.
template<typename Value>
void putInOrder(std::vector<Value>& values, const std::vector<std::size_t>& order)
{
    std::vector<bool> isPut(values.size());
    for (std::size_t start = 0; start < values.size(); ++start) {
        if (isPut[start] || order[start] == start) {
            continue;
        }
        Value first = std::move(values[start]);
        std::size_t place = start;
        for (; order[place] != start; place = order[place]) {
            values[place] = std::move(values[order[place]]);
            isPut[place] = true;
        }
        values[place] = std::move(first);
        isPut[place] = true;
    }
}

class Groups {
public:
    Groups(const std::vector<Turn>& turns, const InSight& isInSight)
        : _turns(turns)
        , _isInSight(isInSight)
    {
        order.reserve(turns.size());
    }

    void add(Whose whose, const std::vector<Stack>& stacks)
    {
        TurnGroup group{.whose = whose, .firstRow = order.size()};
        for (const Stack& stack : stacks) {
            for (std::size_t row = stack.firstRow; stack.whose == whose && row < stack.end; ++row) {
                const bool isEarned = _turns[row].whose == whose && _isInSight(row);
                group.count += isEarned ? 1U : 0U;
                order.push_back(row);
            }
        }
        group.rowCount = order.size() - group.firstRow;
        if (group.rowCount > 0) {
            groups.push_back(group);
        }
    }

    std::vector<std::size_t> order;
    std::vector<TurnGroup> groups;

private:
    const std::vector<Turn>& _turns;
    const InSight& _isInSight;
};

}  // namespace

std::vector<Turn> turnsOf(std::span<const PullRequestRow> rows, const TurnSources& sources)
{
    const Bases bases(rows, sources.listed, sources.login);
    std::vector<Turn> turns;
    turns.reserve(rows.size());
    for (const PullRequestRow& row : rows) {
        const PullRequest& pullRequest = row.pullRequest;
        turns.push_back(turnOf(
            pullRequest,
            findIn(sources.details, pullRequest.id),
            factsOf(pullRequest, sources),
            sources.login,
            // Only relevant to the user's own pull requests.
            isSameLogin(pullRequest.author, sources.login) ? bases.numberBelow(pullRequest)
                                                           : std::nullopt));
    }
    return turns;
}

ArrangedRows arrangedByTurn(
    std::vector<PullRequestRow> rows,
    const TurnSources& sources,
    const std::function<bool(const PullRequest&)>& isInSight)
{
    std::vector<bool> rowsInSight;
    if (isInSight) {
        rowsInSight.reserve(rows.size());
        for (const PullRequestRow& row : rows) {
            rowsInSight.push_back(isInSight(row.pullRequest));
        }
    }
    const InSight sight{rowsInSight};
    ArrangedRows arranged{std::move(rows), {}, {}};
    arranged.turns = turnsOf(arranged.rows, sources);
    const std::vector<Stack> stacks = stacksOf(arranged.rows, arranged.turns, sight);
    Groups groups(arranged.turns, sight);
    for (const Whose whose : {Whose::you, Whose::ready, Whose::teams, Whose::others}) {
        groups.add(whose, stacks);
    }
    putInOrder(arranged.rows, groups.order);
    putInOrder(arranged.turns, groups.order);
    arranged.groups = std::move(groups.groups);
    return arranged;
}

ArrangedRows arranged(
    Arrangement arrangement,
    std::vector<PullRequestRow> rows,
    const TurnSources& sources,
    const std::function<bool(const PullRequest&)>& isInSight)
{
    switch (arrangement) {
    case Arrangement::byReviewState:
        return {std::move(rows), {}, {}};
    case Arrangement::byWhoseTurn:
        return arrangedByTurn(std::move(rows), sources, isInSight);
    }
    return {};
}

}  // namespace Tarnwick
