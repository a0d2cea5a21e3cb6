#include "SampleGitHub/Age.h"

#include <gmock/gmock.h>

namespace {

using namespace std::chrono_literals;
using SampleGitHub::parseAge;

TEST(Age, isANumberAndAUnitOnceOrSeveralTimes)
{
    EXPECT_EQ(parseAge("45s"), 45s);
    EXPECT_EQ(parseAge("20m"), 20min);
    EXPECT_EQ(parseAge("2d4h"), 52h);
    EXPECT_EQ(parseAge("6w"), 6 * 7 * 24h);
    EXPECT_EQ(parseAge("0s"), 0s);
}

TEST(Age, isNoOtherText)
{
    for (const char* const text : {"", "3", "h", "3h2", "3 h", "-3h", "3y", "1.5h", "9999999w"}) {
        EXPECT_EQ(parseAge(text), std::nullopt) << text;
    }
}

}  // namespace
