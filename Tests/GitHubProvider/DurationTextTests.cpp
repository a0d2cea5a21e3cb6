#include "GitHubProvider/DurationText.h"

#include <gtest/gtest.h>

namespace {

using GitHub::durationText;
using namespace std::chrono_literals;

TEST(DurationText, isTheShortestDecimalOfTheSeconds)
{
    EXPECT_EQ(durationText(123'456'789ns), "0.123456789 seconds");
    EXPECT_EQ(durationText(250ms), "0.25 seconds");
    EXPECT_EQ(durationText(1ns), "0.000000001 seconds");
    EXPECT_EQ(durationText(0ns), "0 seconds");
    EXPECT_EQ(durationText(30s), "30 seconds");
    EXPECT_EQ(durationText(100'000'000s), "100000000 seconds");
}

}  // namespace
