#include "Tarnwick/Persistence/IniDefaultsStore.h"

#include "Persistence/FileTrouble.h"
#include "Support/Joined.h"
#include "Tarnwick/Model/Settings.h"
#include "Tarnwick/Persistence/Files.h"
#include "Tarnwick/Persistence/VisitStore.h"

#include <csignal>

#include <rapidcheck/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace TestSupport;

class IniDefaultsStoreTest : public testing::Test {
protected:
    IniDefaultsStore open() const { return IniDefaultsStore(file); }

    std::string problemOf(const char* verb, const char* reason) const
    {
        return "The settings file " + file.string() + " cannot be " + verb + " (" + reason
               + "), so changes to the settings are not saved.";
    }

    Folder folder;
    std::filesystem::path file = folder / "settings.ini";
};

TEST_F(IniDefaultsStoreTest, makesNoFileBeforeTheFirstChange)
{
    auto store = open();
    EXPECT_EQ(store.value("polling.interval"), std::nullopt);
    store.refresh();
    EXPECT_THAT(folder.names(), IsEmpty());
    EXPECT_EQ(store.problem(), std::nullopt);
}

TEST_F(IniDefaultsStoreTest, hasAChangeOnDiskAtOnce)
{
    auto store = open();
    writeInteger(store, "polling.interval", 60);
    EXPECT_EQ(contentsOf(file), "[General]\npolling.interval=60\n");
    EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
}

TEST_F(IniDefaultsStoreTest, takesAKeyOut)
{
    writeFile(file, "[General]\nfirst=1\nsecond=2\nfirst=3\n");
    auto store = open();
    store.remove("first");
    EXPECT_EQ(contentsOf(file), "[General]\nsecond=2\n");
    EXPECT_EQ(store.value("first"), std::nullopt);
    store.change([&] {
        writeInteger(store, "third", 3);
        store.remove("third");
        EXPECT_EQ(store.value("third"), std::nullopt);
        store.remove("second");
        writeInteger(store, "second", 4);
    });
    EXPECT_EQ(contentsOf(file), "[General]\nsecond=4\n");
}

TEST_F(IniDefaultsStoreTest, listsKeysAsTheyAreWithinAChange)
{
    writeFile(file, "lastSeen.a%7C1=1\nlastSeen.b=1\nother=1\nlastSeen.a b=1\n");
    auto store = open();
    EXPECT_THAT(store.keys("lastSeen."), ElementsAre("lastSeen.a|1", "lastSeen.b"));
    store.change([&] {
        store.remove("lastSeen.b");
        writeInteger(store, "lastSeen.c", 1);
        writeInteger(store, "another", 1);
        EXPECT_THAT(store.keys("lastSeen."), ElementsAre("lastSeen.a|1", "lastSeen.c"));
    });
}

TEST_F(IniDefaultsStoreTest, hasAnotherRevisionAfterSomebodyElsesChangeAlone)
{
    auto store = open();
    auto other = open();
    auto before = store.revision();
    store.refresh();
    writeInteger(store, "polling.interval", 60);
    writeInteger(store, "polling.interval", 300);
    store.remove("polling.interval");
    EXPECT_EQ(store.revision(), before);
    writeInteger(other, "polling.interval", 1800);
    store.refresh();
    EXPECT_NE(store.revision(), before);
    before = store.revision();
    writeInteger(other, "polling.interval", 60);
    writeFlag(store, "appearance.darkMode", true);
    EXPECT_NE(store.revision(), before) << "it was read for the own change";
    EXPECT_EQ(readInteger(store, "polling.interval"), 60);
}

TEST_F(IniDefaultsStoreTest, makesMissingFolders)
{
    file = folder / "a/b/settings.ini";
    auto store = open();
    writeFlag(store, "notifications.unblocked", true);
    EXPECT_EQ(contentsOf(file), "[General]\nnotifications.unblocked=true\n");
}

TEST_F(IniDefaultsStoreTest, makesAFileForItsOwnerAlone)
{
    auto store = open();
    writeInteger(store, "polling.interval", 60);
    EXPECT_EQ(modeOf(file), 0600U);
    writeInteger(store, "polling.interval", 300);
    EXPECT_EQ(modeOf(file), 0600U);
}

TEST_F(IniDefaultsStoreTest, leavesThePermissionsOfAFileAsTheyAre)
{
    writeFile(file, "[General]\n");
    std::filesystem::permissions(file, std::filesystem::perms{0640});
    auto store = open();
    writeInteger(store, "polling.interval", 60);
    EXPECT_EQ(modeOf(file), 0640U);
}

TEST_F(IniDefaultsStoreTest, readsWhatAnEditorWrote)
{
    writeFile(
        file,
        "[General]\n; mine\nfilters.status=Draft\nfilters.checks=Fail, Pass\n"
        "filters.schemaVersion=2\nnotifications.unblocked=1\nfilters.repositories=\n"
        "editor.projectDirectory=/home/octo/my projects\n");
    const auto store = open();
    EXPECT_THAT(readTextList(store, "filters.status"), Optional(ElementsAre("Draft")));
    EXPECT_THAT(readTextList(store, "filters.checks"), Optional(ElementsAre("Fail", "Pass")));
    EXPECT_THAT(readInteger(store, "filters.schemaVersion"), Optional(2));
    EXPECT_THAT(readFlag(store, "notifications.unblocked"), Optional(true));
    EXPECT_THAT(
        readText(store, "editor.projectDirectory"),
        Optional(std::string("/home/octo/my projects")));
    EXPECT_EQ(store.problem(), std::nullopt);
}

TEST_F(IniDefaultsStoreTest, leavesEveryOtherLineAsItIs)
{
    writeFile(
        file,
        "; mine\n[General]\nfuture.setting = 7\nno equals "
        "sign\n\n[Window]\npolling.interval=400\n");
    auto store = open();
    writeInteger(store, "polling.interval", 60);
    EXPECT_EQ(
        contentsOf(file),
        "; mine\n[General]\nfuture.setting = 7\nno equals sign\npolling.interval=60\n\n"
        "[Window]\npolling.interval=400\n");
}

TEST_F(IniDefaultsStoreTest, bringsEveryTypeBackFromDisk)
{
    auto store = open();
    writeFlag(store, "flag", true);
    writeFlag(store, "otherFlag", false);
    writeInteger(store, "integer", INT64_MIN);
    writeText(store, "text", "a, b; \"c\" = @d\\e\n\t%20 日本 🦀");
    writeText(store, "noText", "");
    writeTextList(store, "list", std::vector<std::string>{"@a", "b, c", "", "d"});
    writeTextList(store, "listOfOne", std::vector<std::string>{"a, b"});
    writeTextList(store, "emptyList", std::vector<std::string>{});
    writeDate(store, "date", date("2024-05-01T09:30:00Z"));
    const auto other = open();
    EXPECT_THAT(readFlag(other, "flag"), Optional(true));
    EXPECT_THAT(readFlag(other, "otherFlag"), Optional(false));
    EXPECT_THAT(readInteger(other, "integer"), Optional(INT64_MIN));
    EXPECT_THAT(
        readText(other, "text"), Optional(std::string("a, b; \"c\" = @d\\e\n\t%20 日本 🦀")));
    EXPECT_THAT(readText(other, "noText"), Optional(std::string()));
    EXPECT_THAT(readTextList(other, "list"), Optional(ElementsAre("@a", "b, c", "", "d")));
    EXPECT_THAT(readTextList(other, "listOfOne"), Optional(ElementsAre("a, b")));
    EXPECT_THAT(readTextList(other, "emptyList"), Optional(IsEmpty()));
    EXPECT_THAT(readDate(other, "date"), Optional(date("2024-05-01T09:30:00Z")));
}

TEST_F(IniDefaultsStoreTest, keepsEveryKeyAtTheTopLevel)
{
    auto store = open();
    VisitStore visits(
        store, VisitStore::programPrefix, [] { return date("2024-05-01T09:30:00Z"); });
    visits.recordVisit({"github", "github.com", "octo/tools", 12});
    EXPECT_EQ(
        contentsOf(file),
        "[General]\nlastVisitedAt.github%7Cgithub.com%7Cocto%2Ftools%7C12="
        "@Date(2024-05-01T09:30:00Z)\n");
    auto other = open();
    EXPECT_THAT(
        VisitStore(other, VisitStore::programPrefix, nullptr)
            .lastVisited({"github", "github.com", "octo/tools", 12}),
        Optional(date("2024-05-01T09:30:00Z")));
}

TEST_F(IniDefaultsStoreTest, keepsSimilarKeysApart)
{
    const std::vector<std::string> keys{
        "a/b", "a\\b", "a%2Fb", "a%5Cb", "a%252Fb", "a%b", "A/b", "a.b"};
    auto store = open();
    for (const std::string& key : keys) {
        writeText(store, key, key);
    }
    const auto other = open();
    for (const std::string& key : keys) {
        EXPECT_THAT(readText(other, key), Optional(key));
    }
}

TEST_F(IniDefaultsStoreTest, keepsWhatAnotherProcessWroteMeanwhile)
{
    auto store = open();
    writeText(store, "first", "ours");
    EXPECT_TRUE(endedWell(startInOtherProcess([&] {
        auto other = open();
        writeText(other, "first", "theirs");
        writeText(other, "second", "theirs");
    })));
    writeText(store, "third", "ours");
    EXPECT_EQ(contentsOf(file), "[General]\nfirst=theirs\nsecond=theirs\nthird=ours\n");
}

TEST_F(IniDefaultsStoreTest, takesNoticeOfAnotherProcessWhenAsked)
{
    auto store = open();
    writeText(store, "first", "ours");
    EXPECT_TRUE(endedWell(startInOtherProcess([&] {
        auto other = open();
        SettingsStore(other).setSelectedRepositories({"octo/tools"});
    })));
    EXPECT_TRUE(SettingsStore(store).isRepositorySelectionConfigured());
    EXPECT_THAT(readTextList(store, "filters.repositories"), Optional(ElementsAre("octo/tools")));
}

TEST_F(IniDefaultsStoreTest, losesNoKeyWhenProcessesWriteAtTheSameTime)
{
    constexpr int processes = 4;
    constexpr int keys = 10;
    const auto keyOf = [](int process, int key) {
        return "key-" + std::to_string(process) + "-" + std::to_string(key);
    };
    std::vector<pid_t> children;
    for (int process = 0; process < processes; ++process) {
        children.push_back(startInOtherProcess([&, process] {
            auto store = open();
            for (int key = 0; key < keys; ++key) {
                writeInteger(store, keyOf(process, key), key);
            }
        }));
    }
    for (const pid_t child : children) {
        EXPECT_TRUE(endedWell(child));
    }
    const auto store = open();
    for (int process = 0; process < processes; ++process) {
        for (int key = 0; key < keys; ++key) {
            EXPECT_THAT(readInteger(store, keyOf(process, key)), Optional(key));
        }
    }
}

TEST_F(IniDefaultsStoreTest, writesSeveralChangesAtOnce)
{
    auto store = open();
    store.change([&] {
        writeText(store, "first", "one");
        EXPECT_THAT(readText(store, "first"), Optional(std::string("one")));
        writeText(store, "second", "two");
        EXPECT_FALSE(std::filesystem::exists(file));
    });
    EXPECT_EQ(contentsOf(file), "[General]\nfirst=one\nsecond=two\n");
}

TEST_F(IniDefaultsStoreTest, startsAChangeFromWhatAnotherProcessWrote)
{
    auto store = open();
    writeText(store, "first", "ours");
    EXPECT_TRUE(endedWell(startInOtherProcess([&] {
        auto other = open();
        writeText(other, "first", "theirs");
    })));
    store.change([&] { EXPECT_THAT(readText(store, "first"), Optional(std::string("theirs"))); });
}

TEST_F(IniDefaultsStoreTest, leavesTheFileAloneWhenNothingIsDifferent)
{
    auto store = open();
    writeText(store, "first", "one");
    const auto before = Files::stampOf(file);
    writeText(store, "first", "one");
    store.change([] {});
    EXPECT_EQ(Files::stampOf(file), before);
    EXPECT_EQ(store.problem(), std::nullopt);
}

TEST_F(IniDefaultsStoreTest, losesNothingOfOneListThatProcessesChangeAtTheSameTime)
{
    constexpr int processes = 4;
    constexpr int names = 25;
    std::vector<pid_t> children;
    for (int process = 0; process < processes; ++process) {
        children.push_back(startInOtherProcess([&, process] {
            auto defaults = open();
            SettingsStore store(defaults);
            for (int name = 0; name < names; ++name) {
                store.selectRepositories(
                    {std::to_string(process) + "/" + std::to_string(name)}, true);
            }
        }));
    }
    for (const pid_t child : children) {
        EXPECT_TRUE(endedWell(child));
    }
    auto defaults = open();
    EXPECT_EQ(
        SettingsStore(defaults).load().selectedRepositories.size(), std::size_t{processes * names});
}

TEST_F(IniDefaultsStoreTest, isNotStoppedByAProcessThatHoldsTheLock)
{
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t holder = startInOtherProcess([&] {
        const Files::FolderLock lock(file);
        static_cast<void>(write(ready[1], "x", 1));
        raise(SIGSTOP);
    });
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    auto store = open();
    writeText(store, "first", "ours");
    EXPECT_EQ(store.problem(), problemOf("written", "Device or resource busy"));
    EXPECT_THAT(readText(store, "first"), Optional(std::string("ours")));
    kill(holder, SIGCONT);
    EXPECT_TRUE(endedWell(holder));
    writeText(store, "second", "ours");
    EXPECT_EQ(store.problem(), std::nullopt);
    EXPECT_EQ(contentsOf(file), "[General]\nfirst=ours\nsecond=ours\n");
    close(ready[0]);
    close(ready[1]);
}

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

TEST_F(IniDefaultsStoreTest, removesWhatKilledProcessesLeft)
{
    const auto old = std::filesystem::file_time_type::clock::now() - std::chrono::seconds(61);
    const auto leave = [&](const char* name, bool isOld) {
        writeFile(folder / name, "[General]\n");
        if (isOld) {
            std::filesystem::last_write_time(folder / name, old);
        }
    };
    leave("settings.ini.aB3xYz", true);
    leave("settings.ini.9Zzzzz", true);
    leave("settings.ini.Qw3rty", false);
    leave("settings.ini.backup", true);
    leave("settings.ini.201122", true);
    leave("settings.ini.Backup1", true);
    leave("settings.txt.aB3xYz", true);
    std::filesystem::create_directory(folder / "settings.ini.fOlder1");
    std::filesystem::create_symlink("settings.txt.aB3xYz", folder / "settings.ini.aLink1");
    auto store = open();
    writeText(store, "first", "one");
    EXPECT_EQ(
        joined(folder.names()),
        "settings.ini, settings.ini.201122, settings.ini.Backup1, settings.ini.Qw3rty, "
        "settings.ini.aLink1, settings.ini.backup, settings.ini.fOlder1, settings.txt.aB3xYz");
}

TEST_F(IniDefaultsStoreTest, removesWhatItLeavesWhenItIsKilled)
{
    const pid_t child = startInOtherProcess([&] {
        auto store = open();
        for (int number = 0;; ++number) {
            writeInteger(store, "number", number);
        }
    });
    // Killed where it leaves something, which may take several writes.
    const auto leftover = [&] {
        for (const std::string& name : folder.names()) {
            if (name != "settings.ini") {
                return name;
            }
        }
        return std::string();
    };
    std::string name;
    for (;;) {
        int status = 0;
        ASSERT_EQ(kill(child, SIGSTOP), 0);
        ASSERT_EQ(waitpid(child, &status, WUNTRACED), child);
        name = leftover();
        if (!name.empty()) {
            break;
        }
        kill(child, SIGCONT);
    }
    kill(child, SIGKILL);
    EXPECT_FALSE(endedWell(child));
    std::filesystem::last_write_time(
        folder.path() / name,
        std::filesystem::file_time_type::clock::now() - std::chrono::seconds(61));
    auto store = open();
    writeText(store, "first", "one");
    EXPECT_THAT(folder.names(), ElementsAre("settings.ini"));
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

TEST_F(IniDefaultsStoreTest, replacesWhatASymbolicLinkLeadsTo)
{
    writeFile(folder / "kept.ini", "[General]\npolling.interval=60\n");
    std::filesystem::create_symlink("kept.ini", file);
    auto store = open();
    writeInteger(store, "polling.interval", 300);
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_EQ(contentsOf(folder / "kept.ini"), "[General]\npolling.interval=300\n");
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

TEST_F(IniDefaultsStoreTest, writesAMigrationOnceAndThenNothing)
{
    writeFile(
        file,
        "[General]\nfilters.checks=Pass\nfilters.schemaVersion=1\nfilters.reviewers=All\n"
        "filters.mergeable=true\n");
    auto store = open();
    const Settings settings = SettingsStore(store).load();
    EXPECT_EQ(
        contentsOf(file),
        "[General]\nfilters.checks=None, Pass\nfilters.schemaVersion=2\nfilters.reviewers=Any\n"
        "filters.mergeable=true\nfilters.mergeability=Mergeable\n"
        "filters.reviewStates=@Empty()\n");
    const auto written = std::filesystem::last_write_time(file);
    EXPECT_EQ(SettingsStore(store).load(), settings);
    EXPECT_EQ(std::filesystem::last_write_time(file), written);
}

template<typename E>
std::set<E> anySet()
{
    std::set<E> values;
    for (const E value : PullRequestKit::allCases<E>()) {
        if (*rc::gen::arbitrary<bool>()) {
            values.insert(value);
        }
    }
    return values;
}

RC_GTEST_FIXTURE_PROP(IniDefaultsStoreTest, bringsAnySettingsBackFromDisk, ())
{
    Settings settings;
    settings.selectedRepositories =
        *rc::gen::resize(10, rc::gen::container<std::set<std::string>>(anyText()));
    settings.statuses = anySet<StatusFilter>();
    settings.checks = anySet<ChecksFilter>();
    settings.reviewFilters = anySet<ReviewFilter>();
    settings.mergeabilities = anySet<MergeabilityFilter>();
    settings.projectDirectory = *anyText();
    RC_PRE(
        settings.reviewFilters.size() != 3U
        || settings.reviewFilters.contains(ReviewFilter::commented));

    writeFile(file, "[General]\nfilters.schemaVersion=2\n");
    auto defaults = open();
    SettingsStore store(defaults);
    store.change([&](Settings& stored) { stored = settings; });
    auto again = open();
    RC_ASSERT(SettingsStore(again).load() == settings);
    RC_ASSERT(contentsOf(file).find("\n[") == std::string::npos);
}

TEST(IniDefaultsStoreFile, liesInTheUsersConfigurationFolder)
{
    qputenv("XDG_CONFIG_HOME", "/tmp/configuration");
    EXPECT_EQ(
        IniDefaultsStore::defaultFile(), "/tmp/configuration/dev.tarnwick.Tarnwick/settings.ini");
    qunsetenv("XDG_CONFIG_HOME");
}

}  // namespace
