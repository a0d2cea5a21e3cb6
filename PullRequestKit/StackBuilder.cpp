#include "PullRequestKit/StackBuilder.h"

#include "PullRequestKit/PullRequestOrdering.h"
#include "PullRequestKit/UniquePullRequests.h"

#include <array>
#include <limits>
#include <ranges>
#include <unordered_map>
#include <utility>

namespace PullRequestKit::StackBuilder {
namespace {

constexpr const char* ambiguousBase = "Ambiguous base branch";
constexpr const char* cyclicDependency = "Cyclic branch dependency";

using Position = std::size_t;
constexpr Position none = std::numeric_limits<Position>::max();

struct Forest {
    std::vector<Position> parents;      ///< `none` for a root.
    std::vector<const char*> warnings;  ///< Null without a warning.
};

struct BranchHash {
    std::size_t operator()(const BranchReference* branch) const { return RecordHash{}(*branch); }
};

struct BranchEqual {
    bool operator()(const BranchReference* left, const BranchReference* right) const
    {
        return *left == *right;
    }
};

/// The pull requests with the same head branch. The first three are enough to tell whether there
/// are none, one or several besides the current one.
struct Heads {
    std::array<Position, 3> positions{none, none, none};
    std::size_t count = 0;

    void add(Position position)
    {
        if (count < positions.size()) {
            positions[count++] = position;
        }
    }
};

using HeadIndex = std::unordered_map<const BranchReference*, Heads, BranchHash, BranchEqual>;

HeadIndex indexByHead(const std::vector<PullRequest>& pullRequests)
{
    HeadIndex index;
    index.reserve(pullRequests.size());
    for (Position position = 0; position < pullRequests.size(); ++position) {
        index[&pullRequests[position].head].add(position);
    }
    return index;
}

Forest findParents(const std::vector<PullRequest>& pullRequests)
{
    const HeadIndex byHead = indexByHead(pullRequests);
    Forest forest{
        std::vector<Position>(pullRequests.size(), none),
        std::vector<const char*>(pullRequests.size(), nullptr)};
    for (Position child = 0; child < pullRequests.size(); ++child) {
        const auto found = byHead.find(&pullRequests[child].base);
        if (found == byHead.end()) {
            continue;
        }
        const Heads& heads = found->second;
        const bool isAmongThem = pullRequests[child].head == pullRequests[child].base;
        const std::size_t candidates = heads.count - (isAmongThem ? 1 : 0);
        if (candidates > 1) {
            forest.warnings[child] = ambiguousBase;
        } else if (candidates == 1) {
            forest.parents[child] =
                heads.positions[0] == child ? heads.positions[1] : heads.positions[0];
        }
    }
    return forest;
}

/// Makes every member of a cycle a root. Descendants of a member stay in its stack.
void breakCycles(Forest& forest)
{
    const std::size_t count = forest.parents.size();
    std::vector<Position> walkOf(count, none);
    std::vector<Position> cyclic;
    for (Position start = 0; start < count; ++start) {
        Position current = start;
        while (current != none && walkOf[current] == none) {
            walkOf[current] = start;
            current = forest.parents[current];
        }
        if (current == none || walkOf[current] != start) {
            continue;
        }
        const Position first = current;
        do {
            cyclic.push_back(current);
            current = forest.parents[current];
        } while (current != first);
    }
    for (const Position member : cyclic) {
        forest.parents[member] = none;
        forest.warnings[member] = cyclicDependency;
    }
}

/// The forest as links to the first child and the next sibling, `none` where there is none.
struct Listing {
    Position firstRoot = none;
    std::vector<Position> firstChildren;
    std::vector<Position> nextSiblings;
};

Listing makeListing(const Forest& forest, const std::vector<PullRequest>& pullRequests)
{
    Listing listing{
        none,
        std::vector<Position>(pullRequests.size(), none),
        std::vector<Position>(pullRequests.size(), none)};
    const std::vector<Position> order = PullRequestOrdering::order(pullRequests);
    for (const Position position : std::views::reverse(order)) {
        const Position parent = forest.parents[position];
        Position& first = parent == none ? listing.firstRoot : listing.firstChildren[parent];
        listing.nextSiblings[position] = std::exchange(first, position);
    }
    return listing;
}

struct Visit {
    Position position;
    std::int64_t depth;
};

}  // namespace

std::vector<PullRequestRow> rows(std::vector<PullRequest> pullRequests)
{
    std::vector<PullRequest> unique = uniquePullRequests(std::move(pullRequests));
    Forest forest = findParents(unique);
    breakCycles(forest);
    const Listing listing = makeListing(forest, unique);

    // An explicit stack, because chains of branches may be long.
    std::vector<Visit> pending;
    const auto push = [&](Position position, std::int64_t depth) {
        if (position != none) {
            pending.push_back({position, depth});
        }
    };
    std::vector<PullRequestRow> rows;
    rows.reserve(unique.size());
    push(listing.firstRoot, 0);
    while (!pending.empty()) {
        const auto [position, depth] = pending.back();
        pending.pop_back();
        const Position firstChild = listing.firstChildren[position];
        PullRequestRow& row = rows.emplace_back();
        row.pullRequest = std::move(unique[position]);
        row.depth = depth;
        row.hasChildren = firstChild != none;
        if (forest.warnings[position] != nullptr) {
            row.warning = forest.warnings[position];
        }
        push(listing.nextSiblings[position], depth);
        push(firstChild, depth + 1);
    }
    return rows;
}

}  // namespace PullRequestKit::StackBuilder
