#include "Tarnwick/Persistence/FileWatcher.h"

#include "Fakes/EventLoop.h"
#include "Persistence/FileTrouble.h"
#include "Tarnwick/Persistence/Files.h"

#include <functional>
#include <memory>

namespace {

using namespace TestSupport;

class FileWatching : public testing::Test {
protected:
    void watch()
    {
        watcher = std::make_unique<FileWatcher>(file);
        QObject::connect(watcher.get(), &FileWatcher::changed, watcher.get(), [this] { ++count; });
    }

    /// Whether the change is told of.
    bool tellsOf(const std::function<void()>& change)
    {
        const int before = count;
        change();
        return eventually([&] { return count > before; });
    }

    /// Like an editor: a new file in the place of the old one.
    void replaceFile(const std::string& contents) const
    {
        Files::replace(file, contents, Files::ownerOnly);
    }

    Folder folder;
    std::filesystem::path file = folder / "settings.ini";
    std::unique_ptr<FileWatcher> watcher;
    int count = 0;
};

// What one test can say of the time on a busy machine.
static_assert(FileWatcher::rest < FileWatcher::patience && FileWatcher::patience < 1s);

TEST_F(FileWatching, tellsOfAFileThatIsWrittenInPlace)
{
    writeFile(file, "one");
    watch();
    EXPECT_TRUE(tellsOf([&] { writeFile(file, "three"); }));
    EXPECT_TRUE(tellsOf([&] { writeFile(file, "four"); }));
}

TEST_F(FileWatching, tellsOfAFileThatIsReplacedAgainAndAgain)
{
    writeFile(file, "one");
    watch();
    for (const char* const contents : {"two", "three", "four"}) {
        EXPECT_TRUE(tellsOf([&] { replaceFile(contents); }));
    }
    EXPECT_TRUE(tellsOf([&] { writeFile(file, "in place after that"); }));
}

TEST_F(FileWatching, tellsOfAFileThatComesAndGoes)
{
    watch();
    EXPECT_TRUE(tellsOf([&] { writeFile(file, "one"); }));
    EXPECT_TRUE(tellsOf([&] { std::filesystem::remove(file); }));
    EXPECT_TRUE(tellsOf([&] { replaceFile("two"); }));
}

TEST_F(FileWatching, tellsOfAFileInFoldersThatAreStillToBeMade)
{
    file = folder / "a/b/settings.ini";
    watch();
    EXPECT_TRUE(tellsOf([&] { replaceFile("one"); }));
    EXPECT_TRUE(tellsOf([&] { writeFile(file, "two and more"); }));
    EXPECT_TRUE(tellsOf([&] { std::filesystem::remove_all(folder / "a"); }));
    EXPECT_TRUE(tellsOf([&] { replaceFile("three"); }));
}

TEST_F(FileWatching, followsASymbolicLink)
{
    std::filesystem::create_directory(folder / "kept");
    writeFile(folder / "kept/one.ini", "one");
    writeFile(folder / "kept/other.ini", "the other");
    std::filesystem::create_symlink("kept/one.ini", file);
    watch();
    EXPECT_TRUE(tellsOf([&] { writeFile(folder / "kept/one.ini", "one and more"); }));
    EXPECT_TRUE(tellsOf([&] { replaceFile("replaced through the link"); }));
    EXPECT_TRUE(tellsOf([&] {
        std::filesystem::create_symlink("kept/other.ini", folder / "new");
        std::filesystem::rename(folder / "new", file);
    }));
    EXPECT_TRUE(tellsOf([&] { writeFile(folder / "kept/other.ini", "the other and more"); }));
}

TEST_F(FileWatching, followsAFolderThatIsALink)
{
    std::filesystem::create_directory(folder / "one");
    std::filesystem::create_directory(folder / "other");
    writeFile(folder / "one/settings.ini", "one");
    writeFile(folder / "other/settings.ini", "the other");
    std::filesystem::create_directory_symlink("one", folder / "link");
    file = folder / "link/settings.ini";
    watch();
    EXPECT_TRUE(tellsOf([&] { replaceFile("one and more"); }));
    EXPECT_TRUE(tellsOf([&] {
        std::filesystem::create_directory_symlink("other", folder / "new");
        std::filesystem::rename(folder / "new", folder / "link");
    }));
    EXPECT_TRUE(tellsOf([&] { writeFile(folder / "other/settings.ini", "changed"); }));
}

TEST_F(FileWatching, tellsOfManyChangesOnce)
{
    writeFile(file, "one");
    watch();
    EXPECT_TRUE(tellsOf([&] {
        for (int length = 2; length < 20; ++length) {
            replaceFile(std::string(static_cast<std::size_t>(length), 'a'));
        }
    }));
    EXPECT_EQ(count, 1);
}

TEST_F(FileWatching, doesNotTellOfItsNeighbours)
{
    writeFile(file, "one");
    watch();
    writeFile(folder / "other.ini", "one");
    std::filesystem::remove(folder / "other.ini");
    EXPECT_TRUE(tellsOf([&] { writeFile(file, "two and more"); }));
    EXPECT_EQ(count, 1);
}

}  // namespace
