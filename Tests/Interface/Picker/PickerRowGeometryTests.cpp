#include "Tarnwick/Interface/Picker/PickerRowGeometry.h"

#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

PickerRowGeometry repositoryAt(double scale, int width, int nameWidth, bool hasEye)
{
    setApplicationStyle(scale);
    return PickerRowGeometry::ofRepository(width, nameWidth, hasEye, PickerRowMetrics());
}

TEST(PickerRowGeometryTests, aRepositoryIs48High)
{
    const PickerRowGeometry row = repositoryAt(1, 420, 60, true);
    EXPECT_EQ(row.row, QRect(0, 0, 420, 48));
    EXPECT_EQ(row.fill, QRect(8, 1, 404, 46));
    EXPECT_EQ(row.checkBox, QRect(16, 16, 16, 16));
    EXPECT_EQ(row.name, QRect(44, 7, 60, 18));
    EXPECT_EQ(row.eye, QRect(44 + 60 + 6, 9, 14, 14));
    EXPECT_EQ(row.detail, QRect(44, 25, 360, 16));
    EXPECT_TRUE(row.button.isEmpty());
}

TEST(PickerRowGeometryTests, aLongNameLeavesRoomForTheEye)
{
    const PickerRowGeometry row = repositoryAt(1, 420, 1000, true);
    EXPECT_EQ(row.name.width(), 360 - 6 - 14);
    EXPECT_EQ(row.eye.left() + row.eye.width(), 404);
    EXPECT_EQ(repositoryAt(1, 420, 1000, false).name.width(), 360);
}

TEST(PickerRowGeometryTests, aRepositoryThatIsNotPrivateHasNoEye)
{
    EXPECT_TRUE(repositoryAt(1, 420, 60, false).eye.isEmpty());
}

TEST(PickerRowGeometryTests, anOwnersLabelIs32High)
{
    const PickerRowGeometry row = PickerRowGeometry::ofOwner(420, 61, PickerRowMetrics());
    EXPECT_EQ(row.row, QRect(0, 0, 420, 32));
    EXPECT_EQ(row.name, QRect(16, 7, 420 - 16 - 61 - 12 - 16, 18));
    EXPECT_EQ(row.button, QRect(420 - 16 - 61, 8, 61, 16));
    EXPECT_EQ(row.buttonHit, QRect(335, 0, 85, 32));
    EXPECT_TRUE(row.checkBox.isEmpty());
}

TEST(PickerRowGeometryTests, growsWithTheText)
{
    setApplicationStyle(1.25);
    EXPECT_EQ(PickerRowMetrics().repositoryHeight, 7 + 24 + 20 + 7);
    EXPECT_EQ(PickerRowMetrics().ownerHeight, 40);
    EXPECT_EQ(PickerRowMetrics().checkBox, 20);
    setApplicationStyle(1.5);
    EXPECT_EQ(PickerRowMetrics().repositoryHeight, 7 + 28 + 24 + 7);
    EXPECT_EQ(PickerRowMetrics().ownerHeight, 48);
    EXPECT_EQ(PickerRowMetrics().checkBox, 24);
    EXPECT_EQ(repositoryAt(1.5, 630, 60, false).name.left(), 16 + 24 + 12);
}

TEST(PickerRowGeometryTests, hasNoNegativeWidthsInANarrowList)
{
    const PickerRowGeometry row = repositoryAt(1, 40, 60, true);
    EXPECT_EQ(row.name.width(), 0);
    EXPECT_EQ(row.detail.width(), 0);
}

}  // namespace
}  // namespace Tarnwick
