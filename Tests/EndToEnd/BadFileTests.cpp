#include "TarnwickTest.h"

#include <fstream>

namespace {

using namespace TestSupport;

/// Files that are not what they should be.
class BadFiles : public TarnwickTest {
protected:
    void SetUp() override { serve("everyday"); }
};

TEST_F(BadFiles, aCorruptCacheIsPassedOverAndReplaced)
{
    select("harbourlight/tide-tables");
    std::filesystem::create_directories(cacheFile().parent_path());
    std::ofstream(cacheFile()) << R"({"pullRequests": [{)";
    const auto list = listJson();
    EXPECT_EQ(list.at("state"), "loaded");
    EXPECT_THAT(list.at("rows").as_array(), SizeIs(5));
    EXPECT_THAT(readFile(cacheFile()), EndsWith("}"));
}

TEST_F(BadFiles, aCorruptCacheStaysWhenTheRefreshFails)
{
    select("harbourlight/tide-tables");
    std::filesystem::create_directories(cacheFile().parent_path());
    std::ofstream(cacheFile()) << "not JSON";
    setFault("server-error@search");
    EXPECT_EQ(listJson().at("state"), "failed");
    EXPECT_EQ(readFile(cacheFile()), "not JSON");
}

TEST_F(BadFiles, aFolderInTheCachesPlaceStays)
{
    select("harbourlight/tide-tables");
    std::filesystem::create_directories(cacheFile());
    const auto result = tarnwick({"list"});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(std::filesystem::is_directory(cacheFile()));
}

TEST_F(BadFiles, unknownAndForeignSettingsAreReadAsTheirDefaults)
{
    writeSettings(
        "filters.repositories=harbourlight/ferry-web\nfilters.repositoriesConfigured=true\n"
        "filters.status=42\nfilters.checks=Perhaps\npolling.interval=often\n"
        "filters.reviewers=Nobody\nunrelated=kept\n");
    const auto list = listJson();
    EXPECT_EQ(list.at("state"), "loaded");
    EXPECT_THAT(list.at("rows").as_array(), SizeIs(3));
    EXPECT_THAT(readFile(settingsFile()), HasSubstr("unrelated=kept"));
}

TEST_F(BadFiles, damagedLinesOfTheSettingsStayAsTheyAre)
{
    writeSettings("\x01\x02 no line\nfilters.repositories=robin-k/dotfiles\n");
    EXPECT_EQ(tarnwick({"repositories", "select", "harbourlight/ferry-web"}).status, 0);
    EXPECT_THAT(readFile(settingsFile()), HasSubstr("\n\x01\x02 no line\n"));
    EXPECT_THAT(
        readFile(settingsFile()),
        HasSubstr("filters.repositories=harbourlight/ferry-web, robin-k/dotfiles\n"));
}

TEST_F(BadFiles, aFolderInTheSettingsPlaceIsNamed)
{
    std::filesystem::create_directories(settingsFile());
    const auto result = tarnwick({"repositories", "select", "--all"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr(settingsFile().string()));
    EXPECT_TRUE(std::filesystem::is_directory(settingsFile()));
}

}  // namespace
