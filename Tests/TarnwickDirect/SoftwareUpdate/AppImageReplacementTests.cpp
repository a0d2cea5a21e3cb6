#include "TarnwickDirect/SoftwareUpdate/AppImageReplacement.h"

#include "Persistence/FileTrouble.h"
#include "SoftwareUpdate/UpdateErrors.h"

#include <fstream>

#include <gmock/gmock.h>

namespace {

using FileTrouble::contentsOf;
using testing::ElementsAre;
using testing::StartsWith;

class AppImageReplacementTest : public testing::Test {
protected:
    AppImageReplacementTest()
    {
        FileTrouble::writeFile(oldFile, "old");
        FileTrouble::writeFile(newFile, newContents);
        std::filesystem::permissions(oldFile, std::filesystem::perms(0755));
    }

    std::string error() const
    {
        return TestSupport::updateErrorOf(
            [this] { TarnwickDirect::replaceAppImage(oldFile, newFile); });
    }

    FileTrouble::Folder downloads;
    FileTrouble::Folder folder;
    const std::string newContents = std::string(1'000'000, 'n') + "ew";
    std::filesystem::path oldFile = folder / "Tarnwick.AppImage";
    std::filesystem::path newFile = downloads / "Tarnwick-2.0.AppImage";
};

TEST_F(AppImageReplacementTest, putsTheNewFileInThePlaceOfTheOldOne)
{
    EXPECT_EQ(error(), "none");
    EXPECT_EQ(contentsOf(oldFile), newContents);
    EXPECT_THAT(folder.names(), ElementsAre("Tarnwick.AppImage"));
}

TEST_F(AppImageReplacementTest, leavesTheDownloadAsItIs)
{
    EXPECT_EQ(error(), "none");
    EXPECT_EQ(contentsOf(newFile), newContents);
}

TEST_F(AppImageReplacementTest, keepsThePermissions)
{
    std::filesystem::permissions(oldFile, std::filesystem::perms(0711));
    EXPECT_EQ(error(), "none");
    EXPECT_EQ(FileTrouble::modeOf(oldFile), 0711U);
}

TEST_F(AppImageReplacementTest, makesTheNewFileExecutable)
{
    std::filesystem::permissions(oldFile, std::filesystem::perms(0644));
    EXPECT_EQ(error(), "none");
    EXPECT_EQ(FileTrouble::modeOf(oldFile), 0744U);
}

TEST_F(AppImageReplacementTest, whatRunsFromTheOldFileKeepsIt)
{
    std::ifstream running(oldFile);
    EXPECT_EQ(error(), "none");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(running), {}), "old");
}

TEST_F(AppImageReplacementTest, aSymbolicLinkStays)
{
    const auto target = folder / "Tarnwick-1.0.AppImage";
    std::filesystem::rename(oldFile, target);
    std::filesystem::create_symlink("Tarnwick-1.0.AppImage", oldFile);
    EXPECT_EQ(error(), "none");
    EXPECT_TRUE(is_symlink(oldFile));
    EXPECT_EQ(contentsOf(target), newContents);
}

TEST_F(AppImageReplacementTest, aFullDiskLeavesTheOldFile)
{
    const FileTrouble::LargestFile limit(500'000);
    EXPECT_EQ(error(), "\"" + oldFile.string() + "\" could not be replaced: File too large.");
    EXPECT_EQ(contentsOf(oldFile), "old");
    EXPECT_THAT(folder.names(), ElementsAre("Tarnwick.AppImage"));
}

TEST_F(AppImageReplacementTest, aFolderThatIsNotTheUsersLeavesTheOldFile)
{
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0555));
    {
        const FileTrouble::OrdinaryUser user;
        EXPECT_THAT(error(), StartsWith("\"" + oldFile.string() + "\" could not be replaced: "));
    }
    std::filesystem::permissions(folder.path(), std::filesystem::perms(0755));
    EXPECT_EQ(contentsOf(oldFile), "old");
    EXPECT_THAT(folder.names(), ElementsAre("Tarnwick.AppImage"));
}

TEST_F(AppImageReplacementTest, aMissingOldFileIsNotMade)
{
    std::filesystem::remove(oldFile);
    EXPECT_EQ(
        error(), "\"" + oldFile.string() + "\" could not be replaced: No such file or directory.");
    EXPECT_THAT(folder.names(), ElementsAre());
}

TEST_F(AppImageReplacementTest, aMissingNewFileLeavesTheOldOne)
{
    std::filesystem::remove(newFile);
    EXPECT_EQ(
        error(), "\"" + oldFile.string() + "\" could not be replaced: No such file or directory.");
    EXPECT_EQ(contentsOf(oldFile), "old");
    EXPECT_THAT(folder.names(), ElementsAre("Tarnwick.AppImage"));
}

}  // namespace
