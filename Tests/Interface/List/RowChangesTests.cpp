#include "Tarnwick/Interface/List/RowChanges.h"

#include <algorithm>
#include <numeric>
#include <random>

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

namespace {

using namespace Tarnwick;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(RowChanges, anUnchangedListTakesNoStep)
{
    const RowChanges changes = rowChanges({0, 1, 2}, 3);
    EXPECT_THAT(changes.removals, IsEmpty());
    EXPECT_THAT(changes.moves, IsEmpty());
    EXPECT_THAT(changes.insertions, IsEmpty());
}

TEST(RowChanges, neighboursGoAndComeTogether)
{
    const RowChanges changes = rowChanges({-1, -1, 2, -1, 3}, 6);
    EXPECT_THAT(changes.removals, ElementsAre(RowRange{3, 3}, RowRange{0, 1}));
    EXPECT_THAT(changes.moves, IsEmpty());
    EXPECT_THAT(changes.insertions, ElementsAre(RowRange{0, 1}, RowRange{4, 5}));
}

TEST(RowChanges, aRowThatRisesIsTheOnlyOneMoved)
{
    EXPECT_THAT(rowChanges({1, 2, 3, 4, 0}, 5).moves, ElementsAre(RowMove{4, 0}));
}

TEST(RowChanges, aRowThatSinksIsTheOnlyOneMoved)
{
    EXPECT_THAT(rowChanges({4, 0, 1, 2, 3}, 5).moves, ElementsAre(RowMove{0, 4}));
}

/// Takes the steps in a list of numbers, new rows being their own place.
std::vector<int> afterSteps(std::vector<int> list, const RowChanges& changes)
{
    for (const auto& [first, last] : changes.removals) {
        list.erase(list.begin() + first, list.begin() + last + 1);
    }
    for (const auto& [from, to] : changes.moves) {
        const int moved = list.at(static_cast<std::size_t>(from));
        list.erase(list.begin() + from);
        list.insert(list.begin() + to, moved);
    }
    for (const auto& [first, last] : changes.insertions) {
        for (int row = first; row <= last; ++row) {
            list.insert(list.begin() + row, row);
        }
    }
    return list;
}

RC_GTEST_PROP(RowChanges, theStepsAlwaysLeadToTheNewList, ())
{
    const int newCount = *rc::gen::inRange(0, 40);
    std::vector<int> targets(static_cast<std::size_t>(newCount));
    std::iota(targets.begin(), targets.end(), 0);
    std::mt19937 engine(*rc::gen::arbitrary<unsigned>());
    std::ranges::shuffle(targets, engine);
    targets.resize(static_cast<std::size_t>(*rc::gen::inRange(0, newCount + 1)));
    const int gone = *rc::gen::inRange(0, 10);
    for (int count = 0; count < gone; ++count) {
        const auto place = *rc::gen::inRange<std::size_t>(0, targets.size() + 1);
        targets.insert(targets.begin() + static_cast<std::ptrdiff_t>(place), -1);
    }

    const RowChanges changes = rowChanges(targets, newCount);
    std::vector<int> wanted(static_cast<std::size_t>(newCount));
    std::iota(wanted.begin(), wanted.end(), 0);
    RC_ASSERT(afterSteps(targets, changes) == wanted);
}

}  // namespace
