#include "TarnwickDirect/Application/PlatformData.h"

#include <gtest/gtest.h>

namespace {

using TarnwickDirect::PlatformData;

TEST(PlatformData, goesThroughTheBusUnchanged)
{
    const PlatformData data{QStringLiteral("token"), QStringLiteral("launcher-1_TIME42")};
    EXPECT_EQ(PlatformData::from(data.toMap()), data);
    EXPECT_EQ(data.toMap().value(QStringLiteral("activation-token")), QStringLiteral("token"));
    EXPECT_EQ(
        data.toMap().value(QStringLiteral("desktop-startup-id")),
        QStringLiteral("launcher-1_TIME42"));
    EXPECT_TRUE(PlatformData{}.toMap().isEmpty());
}

TEST(PlatformData, isEmptyWhereNothingOrSomethingElseIsGiven)
{
    EXPECT_EQ(PlatformData::from({}), PlatformData{});
    EXPECT_EQ(PlatformData::from({{QStringLiteral("locale"), 7}}), PlatformData{});
}

TEST(PlatformData, comesFromTheLaunchersVariables)
{
    qputenv("XDG_ACTIVATION_TOKEN", "token");
    qputenv("DESKTOP_STARTUP_ID", "launcher-1_TIME42");
    EXPECT_EQ(
        PlatformData::fromEnvironment(),
        (PlatformData{QStringLiteral("token"), QStringLiteral("launcher-1_TIME42")}));
    qunsetenv("XDG_ACTIVATION_TOKEN");
    qunsetenv("DESKTOP_STARTUP_ID");
    EXPECT_EQ(PlatformData::fromEnvironment(), PlatformData{});
}

TEST(PlatformData, knowsTheTimeInAStartupId)
{
    const auto time = [](const char* id) {
        return PlatformData{{}, QString::fromLatin1(id)}.startupTime();
    };
    EXPECT_EQ(time("xfce4-panel-99-host-tarnwick-0_TIME4294967295"), 4294967295U);
    EXPECT_EQ(time("a_TIME1_TIME2"), 2U);
    EXPECT_EQ(time("a_TIME"), 0U);
    EXPECT_EQ(time("a_TIMEx"), 0U);
    EXPECT_EQ(time("a_TIME4294967296"), 0U);
    EXPECT_EQ(time("a"), 0U);
    EXPECT_EQ(time(""), 0U);
}

}  // namespace
