#include "Tarnwick/Desktop/AppImage.h"

#include "Persistence/FileTrouble.h"

#include <gtest/gtest.h>

namespace {

using namespace Tarnwick;

class AppImageTest : public testing::Test {
protected:
    AppImageTest()
    {
        FileTrouble::writeFile(file, "a program");
        std::filesystem::create_directories(folder / "mount/usr/bin");
        FileTrouble::writeFile(executable, "the program in it");
    }

    FileTrouble::Folder folder;
    std::filesystem::path file = folder / "Tarnwick.AppImage";
    std::filesystem::path executable = folder / "mount/usr/bin/tarnwick";
    GitHub::Environment environment{{"APPIMAGE", file.string()}, {"APPDIR", folder / "mount"}};
};

TEST_F(AppImageTest, isTheFileThatTheEnvironmentNames)
{
    EXPECT_EQ(appImageOf(environment, executable), file);
    EXPECT_EQ(startableFile(environment, executable), file);
}

TEST_F(AppImageTest, isNoneOfAProgramThatItStarts)
{
    EXPECT_EQ(appImageOf(environment, "/usr/bin/tarnwick"), "");
    EXPECT_EQ(startableFile(environment, "/usr/bin/tarnwick"), "/usr/bin/tarnwick");
}

TEST_F(AppImageTest, hasAFolderOfItsOwnAndNotOneWithALongerName)
{
    std::filesystem::create_directories(folder / "mount-2");
    EXPECT_EQ(appImageOf(environment, folder / "mount-2/tarnwick"), "");
}

TEST_F(AppImageTest, isNoneWhenTheFileIsGone)
{
    std::filesystem::remove(file);
    EXPECT_EQ(appImageOf(environment, executable), "");
    EXPECT_EQ(startableFile(environment, executable), executable);
}

TEST_F(AppImageTest, isNoneWithoutAWordOfIt)
{
    EXPECT_EQ(appImageOf({}, executable), "");
    environment.erase("APPDIR");
    EXPECT_EQ(appImageOf(environment, executable), "");
}

TEST_F(AppImageTest, isNoneInARelativePlace)
{
    environment["APPIMAGE"] = "Tarnwick.AppImage";
    EXPECT_EQ(appImageOf(environment, executable), "");
}

}  // namespace
