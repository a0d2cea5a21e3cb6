#include "Persistence/IniDefaultsStoreTest.h"
#include "Support/Joined.h"
#include "Tarnwick/Model/Settings.h"
#include "Tarnwick/Persistence/Files.h"

#include <csignal>
#include <functional>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace TestSupport;

/// Runs `work` in several processes at once, with the number of each, and waits for them.
void inProcesses(int count, const std::function<void(int)>& work)
{
    std::vector<pid_t> children;
    for (int process = 0; process < count; ++process) {
        children.push_back(startInOtherProcess([&work, process] { work(process); }));
    }
    for (const pid_t child : children) {
        EXPECT_TRUE(endedWell(child));
    }
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
    inProcesses(processes, [&](int process) {
        auto store = open();
        for (int key = 0; key < keys; ++key) {
            writeInteger(store, keyOf(process, key), key);
        }
    });
    const auto store = open();
    for (int process = 0; process < processes; ++process) {
        for (int key = 0; key < keys; ++key) {
            EXPECT_THAT(readInteger(store, keyOf(process, key)), Optional(key));
        }
    }
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

TEST_F(IniDefaultsStoreTest, losesNothingOfOneListThatProcessesChangeAtTheSameTime)
{
    constexpr int processes = 4;
    constexpr int names = 25;
    inProcesses(processes, [&](int process) {
        auto defaults = open();
        SettingsStore store(defaults);
        for (int name = 0; name < names; ++name) {
            store.selectRepositories({std::to_string(process) + "/" + std::to_string(name)}, true);
        }
    });
    auto defaults = open();
    EXPECT_EQ(
        SettingsStore(defaults).load().selectedRepositories.size(),
        std::size_t{processes} * std::size_t{names});
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

}  // namespace
