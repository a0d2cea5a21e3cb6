#include "Tarnwick/Interface/Picker/PickerRowPositions.h"

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

/// Two owners, the first with two repositories, the second with one.
PickerRowPositions twoOwners()
{
    return {{true, false, false, true, false}, 32, 48};
}

TEST(PickerRowPositionsTests, rowsLieBelowEachOther)
{
    const PickerRowPositions positions = twoOwners();
    EXPECT_EQ(positions.rowCount(), 5);
    EXPECT_EQ(positions.top(0), 0);
    EXPECT_EQ(positions.top(1), 32);
    EXPECT_EQ(positions.top(2), 80);
    EXPECT_EQ(positions.top(3), 128);
    EXPECT_EQ(positions.top(4), 160);
    EXPECT_EQ(positions.contentHeight(), 208);
    EXPECT_EQ(positions.height(3), 32);
    EXPECT_EQ(positions.height(4), 48);
}

TEST(PickerRowPositionsTests, everyHeightHasItsRow)
{
    const PickerRowPositions positions = twoOwners();
    EXPECT_EQ(positions.rowAt(-5), 0);
    EXPECT_EQ(positions.rowAt(31), 0);
    EXPECT_EQ(positions.rowAt(32), 1);
    EXPECT_EQ(positions.rowAt(127), 2);
    EXPECT_EQ(positions.rowAt(128), 3);
    EXPECT_EQ(positions.rowAt(207), 4);
    EXPECT_EQ(positions.rowAt(1000), 4);
}

TEST(PickerRowPositionsTests, aLabelStaysAtTheTopUntilTheNextOnePushesItOut)
{
    const PickerRowPositions positions = twoOwners();
    EXPECT_EQ(positions.stuckOwner(0), 0);
    EXPECT_EQ(positions.stuckTop(0), 0);
    EXPECT_EQ(positions.stuckOwner(96), 0);
    EXPECT_EQ(positions.stuckTop(96), 0);
    // The second label lies 22 below the top, so 10 of the first one are out.
    EXPECT_EQ(positions.stuckOwner(106), 0);
    EXPECT_EQ(positions.stuckTop(106), -10);
    EXPECT_EQ(positions.stuckOwner(127), 0);
    EXPECT_EQ(positions.stuckTop(127), -31);
    EXPECT_EQ(positions.stuckOwner(128), 3);
    EXPECT_EQ(positions.stuckTop(128), 0);
    EXPECT_EQ(positions.stuckOwner(190), 3);
}

TEST(PickerRowPositionsTests, nothingStaysOfAnEmptyList)
{
    const PickerRowPositions positions;
    EXPECT_EQ(positions.rowCount(), 0);
    EXPECT_EQ(positions.contentHeight(), 0);
    EXPECT_EQ(positions.stuckOwner(0), std::nullopt);
}

}  // namespace
}  // namespace Tarnwick
