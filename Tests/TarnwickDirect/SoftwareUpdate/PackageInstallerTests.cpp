#include "TarnwickDirect/SoftwareUpdate/PackageInstaller.h"

#include <gmock/gmock.h>

namespace {

using namespace TarnwickDirect;
using testing::Eq;

TEST(PackageInstaller, isTheFirstProgramThatOpensFiles)
{
    const auto isExecutable = [](const std::filesystem::path& path) {
        return path == "/usr/bin/xdg-open" || path == "/bin/xdg-open";
    };
    const auto launch =
        packageInstaller({{"PATH", "/sbin:/usr/bin:/bin"}}, isExecutable, "/home/a b/tarnwick.deb");
    EXPECT_THAT(
        launch,
        Eq(Tarnwick::Launch{
            .executable = "/usr/bin/xdg-open",
            .arguments = {"/home/a b/tarnwick.deb"},
            .activationToken = {}}));
}

TEST(PackageInstaller, isNothingWithoutSuchAProgram)
{
    const auto isExecutable = [](const std::filesystem::path&) { return false; };
    EXPECT_THAT(
        packageInstaller({{"PATH", "/usr/bin"}}, isExecutable, "/tarnwick.deb"), Eq(std::nullopt));
}

}  // namespace
