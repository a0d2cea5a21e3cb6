#include "TarnwickDirect/SoftwareUpdate/Installation.h"

#include "Persistence/FileTrouble.h"
#include "PullRequestKit/Errors.h"
#include "Support/ScriptedRunner.h"

#include <gmock/gmock.h>

namespace {

using namespace TarnwickDirect;
using testing::ElementsAre;
using testing::IsEmpty;
using Kind = Installation::Kind;
using Call = TestSupport::ScriptedRunner::Call;

class InstallationTest : public testing::Test {
protected:
    Installation find() { return findInstallation(environment, executable, runner, {}); }

    /// Makes the program one that runs from an AppImage.
    void mountAppImage()
    {
        FileTrouble::writeFile(folder / "Tarnwick.AppImage", "a program");
        std::filesystem::create_directories(folder / "mount/usr/bin");
        executable = folder / "mount/usr/bin/tarnwick";
        FileTrouble::writeFile(executable, "the program in it");
        environment = {{"APPIMAGE", folder / "Tarnwick.AppImage"}, {"APPDIR", folder / "mount"}};
    }

    FileTrouble::Folder folder;
    GitHub::Environment environment;
    std::filesystem::path executable = "/usr/bin/tarnwick";
    TestSupport::ScriptedRunner runner;
};

TEST_F(InstallationTest, anAppImageIsTheFileThatTheEnvironmentNames)
{
    mountAppImage();
    EXPECT_EQ(find(), (Installation{Kind::appImage, folder / "Tarnwick.AppImage", ""}));
    EXPECT_THAT(runner.calls(), IsEmpty());
    EXPECT_EQ(find().format(), PackageFormat::appImage);
}

TEST_F(InstallationTest, aProgramThatAnAppImageStartsIsNoAppImage)
{
    mountAppImage();
    executable = "/usr/bin/tarnwick";
    runner.prints("tarnwick: /usr/bin/tarnwick\n");
    runner.prints("");
    runner.prints("0.1.0-1");
    EXPECT_EQ(find().kind, Kind::debianPackage);
}

TEST_F(InstallationTest, whatARepositoryHasBelongsToThePackageManager)
{
    runner.prints("tarnwick: /usr/bin/tarnwick\n");
    runner.prints(" tarnwick | 0.1.0-1 | https://deb.example.org stable/main amd64 Packages\n");
    EXPECT_EQ(find(), (Installation{Kind::repositoryPackage, executable, "tarnwick"}));
    EXPECT_THAT(
        runner.calls(),
        ElementsAre(
            Call{"/usr/bin/dpkg-query", {"-S", "/usr/bin/tarnwick"}},
            Call{"/usr/bin/apt-cache", {"madison", "tarnwick"}}));
}

TEST_F(InstallationTest, aPackageThatNoRepositoryHasWasInstalledByHand)
{
    runner.prints("tarnwick:amd64: /usr/bin/tarnwick\n");
    runner.prints("");
    runner.prints("0.2.0~dev-1");
    const Installation found = find();
    EXPECT_EQ(
        found, (Installation{Kind::debianPackage, executable, "tarnwick:amd64", "0.2.0~dev"}));
    EXPECT_EQ(
        runner.calls().back(),
        (Call{"/usr/bin/dpkg-query", {"-W", "-f=${Version}", "tarnwick:amd64"}}));
    EXPECT_EQ(found.format(), PackageFormat::debianPackage);
}

TEST_F(InstallationTest, aFileThatNoPackageOwnsWasBuiltHere)
{
    runner.ends(1, "", "dpkg-query: no path found matching pattern /usr/bin/tarnwick\n");
    const Installation found = find();
    EXPECT_EQ(found, Installation{});
    EXPECT_EQ(found.format(), std::nullopt);
}

TEST_F(InstallationTest, whatDpkgSaysOfSeveralPackagesOrDiversionsSettlesNothing)
{
    runner.prints("one, other: /usr/bin/tarnwick\n");
    EXPECT_EQ(find().kind, Kind::source);
    runner.prints("diversion by other from: /usr/bin/tarnwick\n");
    EXPECT_EQ(find().kind, Kind::source);
}

TEST_F(InstallationTest, aSystemWithoutDpkgHasNoPackages)
{
    runner.fails(std::system_error(ENOENT, std::generic_category()));
    EXPECT_EQ(find(), Installation{});
    runner.fails(PullRequestKit::ProviderError("It took too long."));
    EXPECT_EQ(find(), Installation{});
}

TEST_F(InstallationTest, canBeCancelled)
{
    runner.fails(PullRequestKit::CancellationError());
    EXPECT_THROW(find(), PullRequestKit::CancellationError);
}

TEST_F(InstallationTest, onlyWhatReplacesItselfNeedsAFile)
{
    EXPECT_EQ((Installation{Kind::repositoryPackage, {}, "tarnwick"}.format()), std::nullopt);
    EXPECT_EQ((Installation{Kind::source, {}, ""}.format()), std::nullopt);
}

}  // namespace
