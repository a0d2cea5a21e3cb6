#include "Persistence/IniDefaultsStoreTest.h"
#include "Tarnwick/Model/Settings.h"
#include "Tarnwick/Persistence/Files.h"
#include "Tarnwick/Persistence/VisitStore.h"

#include <rapidcheck/gtest.h>

namespace {

using namespace TestSupport;

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

TEST_F(IniDefaultsStoreTest, replacesWhatASymbolicLinkLeadsTo)
{
    writeFile(folder / "kept.ini", "[General]\npolling.interval=60\n");
    std::filesystem::create_symlink("kept.ini", file);
    auto store = open();
    writeInteger(store, "polling.interval", 300);
    EXPECT_TRUE(std::filesystem::is_symlink(file));
    EXPECT_EQ(contentsOf(folder / "kept.ini"), "[General]\npolling.interval=300\n");
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

TEST_F(IniDefaultsStoreTest, hasAnotherValueForOneKeyThatIsNeverStored)
{
    writeFile(file, "[General]\none=stored\ntwo=stored\n");
    IniDefaultsStore store(file, {{"one", "for once"}});
    EXPECT_EQ(store.value("one"), "for once");
    EXPECT_EQ(store.value("two"), "stored");
    EXPECT_EQ(store.value("three"), std::nullopt);
    store.change([&] {
        store.set("one", "changed");
        store.set("two", "changed");
    });
    EXPECT_EQ(store.value("one"), "for once");
    EXPECT_EQ(contentsOf(file), "[General]\none=stored\ntwo=changed\n");
    store.remove("one");
    store.remove("two");
    EXPECT_EQ(contentsOf(file), "[General]\none=stored\n");
}

TEST_F(IniDefaultsStoreTest, hasTheKeyOfSuchAValueAmongTheOthers)
{
    writeFile(file, "[General]\na.one=stored\nb.two=stored\n");
    const auto keysWith = [this](const std::string& key) {
        return IniDefaultsStore(file, {{key, "true"}}).keys("a.");
    };
    EXPECT_THAT(keysWith("a.three"), ElementsAre("a.one", "a.three"));
    EXPECT_THAT(keysWith("a.one"), ElementsAre("a.one"));
    EXPECT_THAT(keysWith("b.two"), ElementsAre("a.one"));
}

TEST(IniDefaultsStoreFile, liesInTheUsersConfigurationFolder)
{
    qputenv("XDG_CONFIG_HOME", "/tmp/configuration");
    EXPECT_EQ(
        IniDefaultsStore::defaultFile(), "/tmp/configuration/dev.tarnwick.Tarnwick/settings.ini");
    qunsetenv("XDG_CONFIG_HOME");
}

}  // namespace
