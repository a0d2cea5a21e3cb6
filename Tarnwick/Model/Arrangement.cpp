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

/// A branch as the pull requests of one repository know it.
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

/// Finds the pull request that another one is based on.
class Bases {
public:
    explicit Bases(std::span<const PullRequest> listed)
    {
        _byHead.reserve(listed.size());
        for (const PullRequest& pullRequest : listed) {
            Lowest& numbers = _byHead[{pullRequest.id, pullRequest.head}];
            numbers.add(pullRequest.id.number);
        }
    }

    /// The number of another pull request that brings in the base of this one: of several, the
    /// lowest.
    std::optional<std::int64_t> numberBelow(const PullRequest& pullRequest) const
    {
        const auto found = _byHead.find({pullRequest.id, pullRequest.base});
        if (found == _byHead.end()) {
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

    std::unordered_map<BranchOf, Lowest, BranchOfHash> _byHead;
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

/// Rows that stay together.
struct Stack {
    std::size_t firstRow = 0;
    std::size_t end = 0;
    Whose whose = Whose::others;
};

struct InSight {
    const std::vector<bool>& rows;  ///< Empty when everything is.

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

/// Rows and turns as they come, and the order in which they are wanted.
struct Unarranged {
    std::vector<PullRequestRow> rows;
    std::vector<Turn> turns;
    std::vector<Stack> stacks;
};

void appendGroup(ArrangedRows& arranged, Unarranged& source, Whose whose, const InSight& isInSight)
{
    TurnGroup group{.whose = whose, .firstRow = arranged.rows.size()};
    for (const Stack& stack : source.stacks) {
        for (std::size_t row = stack.firstRow; stack.whose == whose && row < stack.end; ++row) {
            const bool isEarned = source.turns[row].whose == whose && isInSight(row);
            group.count += isEarned ? 1 : 0;
            arranged.rows.push_back(std::move(source.rows[row]));
            arranged.turns.push_back(std::move(source.turns[row]));
        }
    }
    group.rowCount = arranged.rows.size() - group.firstRow;
    if (group.rowCount > 0) {
        arranged.groups.push_back(group);
    }
}

}  // namespace

std::vector<Turn> turnsOf(std::span<const PullRequestRow> rows, const TurnSources& sources)
{
    std::optional<Bases> bases;
    std::vector<Turn> turns;
    turns.reserve(rows.size());
    for (const PullRequestRow& row : rows) {
        const PullRequest& pullRequest = row.pullRequest;
        std::optional<std::int64_t> basedOn;
        // Only of the user's own ones it matters.
        if (isSameLogin(pullRequest.author, sources.login)) {
            if (!bases) {
                bases.emplace(sources.listed);
            }
            basedOn = bases->numberBelow(pullRequest);
        }
        turns.push_back(turnOf(
            pullRequest,
            findIn(sources.details, pullRequest.id),
            factsOf(pullRequest, sources),
            sources.login,
            basedOn));
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
    Unarranged source{std::move(rows), {}, {}};
    source.turns = turnsOf(source.rows, sources);
    source.stacks = stacksOf(source.rows, source.turns, sight);
    ArrangedRows arranged;
    arranged.rows.reserve(source.rows.size());
    arranged.turns.reserve(source.rows.size());
    for (const Whose whose : {Whose::you, Whose::ready, Whose::teams, Whose::others}) {
        appendGroup(arranged, source, whose, sight);
    }
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
