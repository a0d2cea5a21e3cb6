#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include "Persistence/FileTrouble.h"
#include "PullRequestKit/Json/Reading.h"
#include "PullRequestKit/Json/Writing.h"
#include "Support/Errors.h"
#include "Support/PullRequests.h"

#include <QtGlobal>

#include <rapidcheck/gtest.h>
#include <sys/stat.h>

namespace {

using namespace TestSupport;

RepositorySummary repository(const std::string& name, bool isArchived)
{
    RepositorySummary repository;
    repository.fullName = name;
    repository.isArchived = isArchived;
    return repository;
}

CachedPullRequestSnapshot smallSnapshot()
{
    CachedPullRequestSnapshot snapshot;
    snapshot.refreshedAt = date("2024-05-01T09:30:00Z");
    return snapshot;
}

CachedPullRequestSnapshot fullSnapshot()
{
    return {
        .pullRequests = {makePullRequest(1), makePullRequest(2)},
        .repositories =
            {{"octo/tools", "public", "C++", "main", true}, repository("octo/web", false)},
        .account = "octo",
        .refreshedAt = date("2024-05-01T09:30:00Z"),
        .reviewerScope = ReviewerScope::any,
        .repositoryScope = std::set<std::string>{"octo/tools"},
        .reviewFilters = std::set<std::string>{"Changes Requested"},
        .states = std::set{PullRequestState::open},
    };
}

TEST(CachedPullRequestSnapshot, withoutScopesAndFiltersHasThreeKeys)
{
    EXPECT_EQ(
        Json::encode(smallSnapshot()),
        R"({"pullRequests":[],"repositories":[],"refreshedAt":"2024-05-01T09:30:00Z"})");
    EXPECT_EQ(
        Json::decode<CachedPullRequestSnapshot>(Json::encode(smallSnapshot())), smallSnapshot());
}

TEST(CachedPullRequestSnapshot, writesItsFieldsInOrder)
{
    CachedPullRequestSnapshot snapshot = fullSnapshot();
    snapshot.pullRequests.clear();
    EXPECT_EQ(
        Json::encode(snapshot),
        R"({"pullRequests":[],"repositories":[{"fullName":"octo/tools","visibility":"public",)"
        R"("language":"C++","defaultBranch":"main","isArchived":true},{"fullName":"octo/web",)"
        R"("isArchived":false}],"account":"octo","refreshedAt":"2024-05-01T09:30:00Z",)"
        R"("reviewerScope":"any","repositoryScope":["octo/tools"],)"
        R"("reviewFilters":["Changes Requested"],"states":["open"]})");
}

TEST(CachedPullRequestSnapshot, ofAnOlderVersionLacksScopesAndFilters)
{
    const auto snapshot = Json::decode<CachedPullRequestSnapshot>(
        R"({"refreshedAt":"2024-05-01T09:30:00Z","account":"octo",)"
        R"("repositories":[{"fullName":"octo/tools"}],"pullRequests":[]})");
    EXPECT_EQ(snapshot.account, "octo");
    EXPECT_EQ(snapshot.reviewerScope, std::nullopt);
    EXPECT_EQ(snapshot.repositoryScope, std::nullopt);
    EXPECT_EQ(snapshot.reviewFilters, std::nullopt);
    EXPECT_EQ(snapshot.states, std::nullopt);
}

TEST(CachedPullRequestSnapshot, tellsAnEmptyScopeFromNone)
{
    CachedPullRequestSnapshot snapshot = smallSnapshot();
    snapshot.repositoryScope.emplace();
    EXPECT_EQ(
        Json::encode(snapshot),
        R"({"pullRequests":[],"repositories":[],"refreshedAt":"2024-05-01T09:30:00Z",)"
        R"("repositoryScope":[]})");
    EXPECT_EQ(Json::decode<CachedPullRequestSnapshot>(Json::encode(snapshot)), snapshot);
}

TEST(CachedPullRequestSnapshot, ofAnOlderVersionMayTellConflictsOnly)
{
    const auto snapshot = Json::decode<CachedPullRequestSnapshot>(
        R"({"pullRequests":[{"id":{"provider":"github","host":"github.com",)"
        R"("repository":"octo/tools","number":7},"title":"T","url":"https://github.com/t",)"
        R"("author":"octo","updatedAt":"2024-05-01T12:00:00Z","state":"open","isDraft":false,)"
        R"("hasMergeConflict":true,"head":{"repository":"octo/tools","name":"a"},)"
        R"("base":{"repository":"octo/tools","name":"main"},"reviewState":"approved",)"
        R"("reviews":{"completed":1,"total":1},"checks":{"completed":0,"total":0}}],)"
        R"("repositories":[],"refreshedAt":"2024-05-01T09:30:00Z"})");
    ASSERT_EQ(snapshot.pullRequests.size(), 1U);
    EXPECT_EQ(snapshot.pullRequests[0].mergeability, PullRequestMergeability::conflicting);
    EXPECT_TRUE(snapshot.pullRequests[0].reviewActivity.hasApproval);
    EXPECT_TRUE(snapshot.pullRequests[0].reviewActivity.hasSubmittedReview);
}

/// The path of the value for which a text is refused.
std::string refusedFor(const std::string& text)
{
    return pathOf([&] { Json::decode<CachedPullRequestSnapshot>(text); });
}

TEST(CachedPullRequestSnapshot, refusesWhatIsMissingOrOfAnotherType)
{
    EXPECT_EQ(
        refusedFor(R"({"pullRequests":[],"repositories":[],"refreshedAt":"yesterday"})"),
        "refreshedAt");
    EXPECT_EQ(
        refusedFor(R"({"pullRequests":[],"repositories":[],"refreshedAt":1714555800})"),
        "refreshedAt");
    EXPECT_EQ(refusedFor(R"({"pullRequests":[],"repositories":[]})"), "refreshedAt");
    EXPECT_EQ(
        refusedFor(R"({"repositories":[],"refreshedAt":"2024-05-01T09:30:00Z"})"), "pullRequests");
    EXPECT_EQ(
        refusedFor(
            R"({"pullRequests":null,"repositories":[],"refreshedAt":"2024-05-01T09:30:00Z"})"),
        "pullRequests");
    EXPECT_EQ(
        refusedFor(R"({"pullRequests":[],"repositories":[],"refreshedAt":"2024-05-01T09:30:00Z",)"
                   R"("reviewerScope":"Any"})"),
        "reviewerScope");
}

TEST(CachedPullRequestSnapshot, refusesNullEntries)
{
    const auto with = [](const std::string& member) {
        return refusedFor(
            R"({"pullRequests":[],"repositories":[],"refreshedAt":"2024-05-01T09:30:00Z",)" + member
            + "}");
    };
    EXPECT_EQ(with(R"("pullRequests":[null])"), "pullRequests[0]");
    EXPECT_EQ(with(R"("repositories":[{"fullName":"a/b"},null])"), "repositories[1]");
    EXPECT_EQ(with(R"("repositoryScope":[null])"), "repositoryScope[0]");
    EXPECT_EQ(with(R"("reviewFilters":["None",null])"), "reviewFilters[1]");
    EXPECT_EQ(with(R"("states":[null])"), "states[0]");
    EXPECT_EQ(with(R"("account":null)"), "none");
}

RC_GTEST_PROP(CachedPullRequestSnapshot, survivesWritingAndReading, ())
{
    CachedPullRequestSnapshot snapshot;
    snapshot.pullRequests = *rc::gen::resize(10, rc::gen::arbitrary<std::vector<PullRequest>>());
    for (PullRequest& pullRequest : snapshot.pullRequests) {
        pullRequest.reviewActivity.hasCommentedReview |=
            pullRequest.reviewState == ReviewState::commented;
    }
    snapshot.refreshedAt = *anyDate();
    for (const auto& name : *rc::gen::container<std::vector<std::string>>(anyText())) {
        snapshot.repositories.push_back(repository(name, name.size() % 2 == 0));
    }
    if (*rc::gen::arbitrary<bool>()) {
        snapshot.account = *anyText();
        snapshot.reviewerScope = ReviewerScope::myself;
    }
    if (*rc::gen::arbitrary<bool>()) {
        snapshot.repositoryScope = *rc::gen::container<std::set<std::string>>(anyText());
        snapshot.reviewFilters = *rc::gen::container<std::set<std::string>>(anyText());
        snapshot.states.emplace();
        for (const auto state : *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 3))) {
            snapshot.states->insert(allCases<PullRequestState>()[static_cast<std::size_t>(state)]);
        }
    }
    RC_ASSERT(Json::decode<CachedPullRequestSnapshot>(Json::encode(snapshot)) == snapshot);
}

class PullRequestDiskCacheTest : public testing::Test {
protected:
    Folder folder;
    PullRequestDiskCache cache{folder / "pull-requests.json"};

    /// Why saving fails, or "none".
    std::string failureOfSaving(const CachedPullRequestSnapshot& snapshot) const
    {
        return messageOf<CacheWriteError>([&] { cache.save(snapshot); });
    }
};

TEST_F(PullRequestDiskCacheTest, yieldsNothingBeforeTheFirstSave)
{
    EXPECT_EQ(cache.load(), std::nullopt);
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST_F(PullRequestDiskCacheTest, loadsWhatWasSaved)
{
    cache.save(fullSnapshot());
    EXPECT_THAT(cache.load(), Optional(fullSnapshot()));
    EXPECT_EQ(contentsOf(cache.fileURL), Json::encode(fullSnapshot()));
}

TEST_F(PullRequestDiskCacheTest, makesMissingFolders)
{
    cache.fileURL = folder / "share/dev.tarnwick.Tarnwick/pull-requests.json";
    cache.save(smallSnapshot());
    EXPECT_THAT(cache.load(), Optional(smallSnapshot()));
}

TEST_F(PullRequestDiskCacheTest, writesForTheOwnerAlone)
{
    cache.save(smallSnapshot());
    EXPECT_EQ(modeOf(cache.fileURL), 0600U);
}

TEST_F(PullRequestDiskCacheTest, takesAnOlderFileAwayFromOthersToo)
{
    writeFile(cache.fileURL, "old");
    std::filesystem::permissions(cache.fileURL, std::filesystem::perms{0644});
    cache.save(smallSnapshot());
    EXPECT_EQ(modeOf(cache.fileURL), 0600U);
    EXPECT_THAT(folder.names(), ElementsAre("pull-requests.json"));
}

TEST_F(PullRequestDiskCacheTest, replacesTheFileAsAWhole)
{
    cache.save(fullSnapshot());
    std::filesystem::create_hard_link(cache.fileURL, folder / "reader");
    cache.save(smallSnapshot());
    EXPECT_EQ(contentsOf(folder / "reader"), Json::encode(fullSnapshot()));
    EXPECT_THAT(cache.load(), Optional(smallSnapshot()));
}

TEST_F(PullRequestDiskCacheTest, removesWhatKilledProcessesLeftOfTheFilesBesideIt)
{
    for (const char* const name :
         {"pull-requests.json.aB3xyz",
          "search.json.Zm6XE0",
          "search.json.backup",
          "notes.Zm6XE0"}) {
        writeFile(folder / name, "{");
        std::filesystem::last_write_time(
            folder / name,
            std::filesystem::file_time_type::clock::now() - std::chrono::seconds(61));
    }
    writeFile(folder / "search.json.Zm6XE1", "{");
    cache.save(smallSnapshot());
    EXPECT_THAT(
        folder.names(),
        UnorderedElementsAre(
            "notes.Zm6XE0", "pull-requests.json", "search.json.Zm6XE1", "search.json.backup"));
}

TEST_F(PullRequestDiskCacheTest, leavesAFileThatItCannotDecodeAsItIs)
{
    const std::vector<std::string> texts{
        "",
        "{",
        "[]",
        "null",
        R"({"pullRequests":[],"repositories":[]})",
        R"({"pullRequests":[],"repositories":[],"refreshedAt":"2024-05-01T09:30:00.5Z"})",
        R"({"pullRequests":[],"repositories":[],"refreshedAt":"2024-05-01T09:30:00Z"} x)",
        std::string(100'000, '['),
        "{\"pullRequests\":\"\xff\xfe\"}",
    };
    for (const std::string& text : texts) {
        writeFile(cache.fileURL, text);
        EXPECT_EQ(cache.load(), std::nullopt) << text.substr(0, 80);
        EXPECT_EQ(contentsOf(cache.fileURL), text);
    }
}

TEST_F(PullRequestDiskCacheTest, refusesEveryCutOffFile)
{
    const std::string text = Json::encode(fullSnapshot());
    for (std::size_t length = 0; length < text.size(); length += 7) {
        writeFile(cache.fileURL, text.substr(0, length));
        EXPECT_EQ(cache.load(), std::nullopt) << length;
    }
}

TEST_F(PullRequestDiskCacheTest, yieldsNothingWhereAFolderIs)
{
    std::filesystem::create_directory(cache.fileURL);
    EXPECT_EQ(cache.load(), std::nullopt);
    EXPECT_THAT(
        failureOfSaving(smallSnapshot()),
        StartsWith("The pull requests could not be saved in " + cache.fileURL.string() + ": "));
    EXPECT_TRUE(std::filesystem::is_directory(cache.fileURL));
    EXPECT_THAT(folder.names(), ElementsAre("pull-requests.json"));
}

TEST_F(PullRequestDiskCacheTest, doesNotWaitForAPipe)
{
    ASSERT_EQ(mkfifo(cache.fileURL.c_str(), 0600), 0);
    EXPECT_EQ(cache.load(), std::nullopt);
}

TEST_F(PullRequestDiskCacheTest, doesNotReadAFileBeyondTheLimit)
{
    cache.save(smallSnapshot());
    std::filesystem::resize_file(cache.fileURL, PullRequestDiskCache::largestFile + 1);
    EXPECT_EQ(cache.load(), std::nullopt);
}

TEST_F(PullRequestDiskCacheTest, yieldsNothingForAFileWithoutReadPermission)
{
    cache.save(smallSnapshot());
    std::filesystem::permissions(cache.fileURL, std::filesystem::perms::none);
    {
        const OrdinaryUser user;
        EXPECT_EQ(cache.load(), std::nullopt);
    }
    std::filesystem::permissions(cache.fileURL, std::filesystem::perms::owner_read);
    EXPECT_THAT(cache.load(), Optional(smallSnapshot()));
}

TEST_F(PullRequestDiskCacheTest, keepsTheOldFileOnAFullDisk)
{
    cache.save(smallSnapshot());
    CachedPullRequestSnapshot large = fullSnapshot();
    large.account = std::string(100'000, 'a');
    std::string failure;
    {
        const LargestFile limit(4096);
        failure = failureOfSaving(large);
    }
    EXPECT_EQ(
        failure,
        "The pull requests could not be saved in " + cache.fileURL.string() + ": File too large.");
    EXPECT_THAT(cache.load(), Optional(smallSnapshot()));
    EXPECT_THAT(folder.names(), ElementsAre("pull-requests.json"));
}

TEST_F(PullRequestDiskCacheTest, keepsTheOldFileInAFolderWithoutWritePermission)
{
    cache.save(smallSnapshot());
    std::filesystem::permissions(folder.path(), std::filesystem::perms{0555});
    std::filesystem::permissions(cache.fileURL, std::filesystem::perms{0444});
    std::string failure;
    {
        const OrdinaryUser user;
        failure = failureOfSaving(fullSnapshot());
    }
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    EXPECT_THAT(failure, HasSubstr("could not be saved in " + cache.fileURL.string()));
    EXPECT_THAT(cache.load(), Optional(smallSnapshot()));
}

TEST_F(PullRequestDiskCacheTest, failsWhereAFolderCannotBeMade)
{
    writeFile(folder / "share", "");
    cache.fileURL = folder / "share/pull-requests.json";
    EXPECT_EQ(
        failureOfSaving(smallSnapshot()),
        "The pull requests could not be saved in " + cache.fileURL.string() + ": Not a directory.");
    EXPECT_EQ(contentsOf(folder / "share"), "");
}

TEST(PullRequestDiskCachePath, liesInTheUsersDataFolder)
{
    qputenv("XDG_DATA_HOME", "/tmp/data");
    EXPECT_EQ(
        PullRequestDiskCache::defaultFile(), "/tmp/data/dev.tarnwick.Tarnwick/pull-requests.json");
    EXPECT_EQ(PullRequestDiskCache().fileURL, PullRequestDiskCache::defaultFile());
    qunsetenv("XDG_DATA_HOME");
    EXPECT_FALSE(std::filesystem::exists("/tmp/data"));
}

}  // namespace
