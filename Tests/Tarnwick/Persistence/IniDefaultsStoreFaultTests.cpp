#include "Persistence/IniDefaultsStoreTest.h"
#include "Tarnwick/Model/Settings.h"

namespace {

using namespace TestSupport;

TEST_F(IniDefaultsStoreTest, neverWritesAFileThatCannotBeRead)
{
    writeFile(file, "[General]\npolling.interval=60\n");
    std::filesystem::permissions(file, std::filesystem::perms::owner_write);
    {
        const OrdinaryUser user;
        auto store = open();
        EXPECT_EQ(readInteger(store, "polling.interval"), std::nullopt);
        writeText(store, "filters.reviewers", "Any");
        EXPECT_THAT(readText(store, "filters.reviewers"), Optional(std::string("Any")));
        EXPECT_EQ(store.problem(), problemOf("read", "Permission denied"));
    }
    std::filesystem::permissions(file, std::filesystem::perms::owner_read);
    EXPECT_EQ(contentsOf(file), "[General]\npolling.interval=60\n");
    EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
}

TEST_F(IniDefaultsStoreTest, neverWritesOverAFolder)
{
    std::filesystem::create_directory(file);
    auto store = open();
    EXPECT_EQ(store.problem(), problemOf("read", "Is a directory"));
    writeText(store, "filters.reviewers", "Any");
    EXPECT_THAT(readText(store, "filters.reviewers"), Optional(std::string("Any")));
    EXPECT_TRUE(store.problem().has_value());
    EXPECT_TRUE(std::filesystem::is_directory(file));
    EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
}

TEST_F(IniDefaultsStoreTest, leavesAWriteProtectedFileAlone)
{
    writeFile(file, "[General]\npolling.interval=60\n");
    std::filesystem::permissions(file, std::filesystem::perms{0444});
    const OrdinaryUser user;
    auto store = open();
    EXPECT_EQ(store.problem(), std::nullopt);
    writeInteger(store, "polling.interval", 300);
    EXPECT_THAT(readInteger(store, "polling.interval"), Optional(300));
    EXPECT_EQ(store.problem(), problemOf("written", "Permission denied"));
    EXPECT_EQ(contentsOf(file), "[General]\npolling.interval=60\n");
}

TEST_F(IniDefaultsStoreTest, keepsTheOldFileOnAFullDiskAndCatchesUpLater)
{
    auto store = open();
    writeInteger(store, "polling.interval", 60);
    {
        const LargestFile nothing(0);
        writeText(store, "filters.reviewers", "Any");
    }
    EXPECT_EQ(store.problem(), problemOf("written", "File too large"));
    EXPECT_THAT(readText(store, "filters.reviewers"), Optional(std::string("Any")));
    EXPECT_EQ(contentsOf(file), "[General]\npolling.interval=60\n");
    EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
    writeFlag(store, "notifications.unblocked", true);
    EXPECT_EQ(store.problem(), std::nullopt);
    EXPECT_EQ(
        contentsOf(file),
        "[General]\npolling.interval=60\nfilters.reviewers=Any\nnotifications.unblocked=true\n");
}

TEST_F(IniDefaultsStoreTest, isNotCutOffByADiskThatBecomesFull)
{
    for (const std::size_t length : {3'000U, 9'000U, 100'000U}) {
        auto store = open();
        writeText(store, "long", std::string(length, 'a'));
        const std::string before = contentsOf(file);
        {
            const LargestFile limit(length - 1'000);
            writeText(store, "filters.reviewers", "Any");
        }
        EXPECT_EQ(contentsOf(file), before) << length;
        EXPECT_TRUE(store.problem().has_value()) << length;
        EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
    }
}

TEST_F(IniDefaultsStoreTest, losesNothingOfADamagedFile)
{
    writeFile(
        file, "[General]\npolling.interval=60\nno equals sign here\n\xff\xfe=\x80\nhalf a li");
    auto store = open();
    EXPECT_THAT(readInteger(store, "polling.interval"), Optional(60));
    writeText(store, "filters.reviewers", "Any");
    EXPECT_EQ(
        contentsOf(file),
        "[General]\npolling.interval=60\nno equals sign here\n\xff\xfe=\x80\nhalf a li\n"
        "filters.reviewers=Any\n");
    EXPECT_EQ(store.problem(), std::nullopt);
}

TEST_F(IniDefaultsStoreTest, losesNothingOfAFileThatIsNotText)
{
    const std::string bytes(
        "\x7f"
        "ELF\0\xff\xfe\x80[",
        9);
    writeFile(file, bytes);
    auto store = open();
    EXPECT_EQ(SettingsStore(store).load(), Settings());
    EXPECT_THAT(contentsOf(file), StartsWith(bytes + "\n"));
}

TEST_F(IniDefaultsStoreTest, doesNotReadAFileBeyondTheLimit)
{
    writeFile(file, "[General]\npolling.interval=60\n");
    std::filesystem::resize_file(file, IniDefaultsStore::largestFile + 1);
    auto store = open();
    EXPECT_EQ(readInteger(store, "polling.interval"), std::nullopt);
    writeFlag(store, "notifications.unblocked", true);
    EXPECT_EQ(store.problem(), problemOf("read", "File too large"));
    EXPECT_EQ(std::filesystem::file_size(file), IniDefaultsStore::largestFile + 1);
}

TEST_F(IniDefaultsStoreTest, countsWhatItHasReadWhenTheFileBecomesUnreadable)
{
    auto store = open();
    writeInteger(store, "polling.interval", 60);
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    store.refresh();
    EXPECT_THAT(readInteger(store, "polling.interval"), Optional(60));
    EXPECT_EQ(store.problem(), problemOf("read", "Is a directory"));
    std::filesystem::remove(file);
    writeText(store, "filters.reviewers", "Any");
    EXPECT_EQ(store.problem(), std::nullopt);
}

TEST_F(IniDefaultsStoreTest, passesOverForeignValues)
{
    writeFile(
        file,
        "[General]\npolling.interval=@Variant(\\0\\x7f)\nfilters.reviewers=@Date(2024-13-01T00:00:"
        "00Z)\n"
        "filters.status=@Empty()\nfilters.schemaVersion=2,2\nnotifications.unblocked=\"\nfilters."
        "checks=\n"
        "editor.projectDirectory=a, b\n=\n==\n");
    auto store = open();
    Settings expected;
    expected.statuses = {};
    EXPECT_EQ(SettingsStore(store).load(), expected);
}

}  // namespace
