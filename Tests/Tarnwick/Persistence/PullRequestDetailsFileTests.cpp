#include "Tarnwick/Persistence/PullRequestDetailsFile.h"

#include "Persistence/FileTrouble.h"
#include "Support/Errors.h"
#include "Support/PullRequests.h"
#include "Tarnwick/Persistence/SnapshotWriter.h"

namespace {

using namespace TestSupport;

CachedPullRequestSnapshot snapshotAt(std::string_view refreshedAt)
{
    CachedPullRequestSnapshot snapshot;
    snapshot.pullRequests = {makePullRequest(1), makePullRequest(2)};
    snapshot.refreshedAt = date(refreshedAt);
    return snapshot;
}

PullRequestDetails namedDetails()
{
    PullRequestDetails details;
    details.requestedTeams = {"platform"};
    details.reviews = {{"noa-b", ReviewVerdict::dismissed}};
    details.failedChecks = {"test linux"};
    details.checkLimit = 100;
    details.asksForUser = true;
    return details;
}

class PullRequestDetailsFileTest : public testing::Test {
protected:
    Folder folder;
    PullRequestDiskCache cache{folder / "pull-requests.json"};
    PullRequestDetailsFile file = PullRequestDetailsFile::beside(cache);
    CachedPullRequestSnapshot snapshot = snapshotAt("2024-05-01T09:30:00Z");
    DetailsByID details{{makePullRequest(1).id, namedDetails()}};
};

TEST_F(PullRequestDetailsFileTest, liesBesideTheCache)
{
    EXPECT_EQ(file.fileURL, folder / "pull-request-details.json");
}

TEST_F(PullRequestDetailsFileTest, yieldsWhatWasSavedWithTheSnapshot)
{
    file.save(snapshot, details);
    EXPECT_EQ(file.load(snapshot), details);
}

TEST_F(PullRequestDetailsFileTest, isOneDocumentInTheOrderOfTheSnapshot)
{
    PullRequestDetails passed;
    passed.passedChecks = {"test linux", "lint"};
    details.emplace(makePullRequest(2).id, passed);
    details.emplace(makePullRequest(3).id, namedDetails());  // Not in the snapshot.
    file.save(snapshot, details);
    EXPECT_EQ(
        contentsOf(file.fileURL),
        R"({"version":1,"refreshedAt":"2024-05-01T09:30:00Z","checkNames":["test linux","lint"],)"
        R"("pullRequests":[)"
        R"({"id":{"provider":"github","host":"github.com","repository":"octo/tools","number":1},)"
        R"("details":{"requestedUsers":[],"requestedTeams":["platform"],)"
        R"("reviews":[{"author":"noa-b","verdict":"dismissed"}],"passedChecks":[],)"
        R"("failedChecks":[0],"runningChecks":[],"checkLimit":100,"asksForUser":true}},)"
        R"({"id":{"provider":"github","host":"github.com","repository":"octo/tools","number":2},)"
        R"("details":{"requestedUsers":[],"requestedTeams":[],"reviews":[],"passedChecks":[0,1],)"
        R"("failedChecks":[],"runningChecks":[]}}]})");
}

TEST_F(PullRequestDetailsFileTest, isForItsOwnerAlone)
{
    file.save(snapshot, details);
    EXPECT_EQ(modeOf(file.fileURL), 0600U);
}

TEST_F(PullRequestDetailsFileTest, ofAnotherRefreshCountsAsAbsent)
{
    file.save(snapshot, details);
    EXPECT_THAT(file.load(snapshotAt("2024-05-01T09:30:01Z")), IsEmpty());
}

TEST_F(PullRequestDetailsFileTest, mayLackTheDetailsOfAnEntryAndHoldWhatThisVersionDoesNotKnow)
{
    writeFile(
        file.fileURL,
        R"({"version":1,"refreshedAt":"2024-05-01T09:30:00Z","more":[],"checkNames":["lint"],)"
        R"("pullRequests":[)"
        R"({"id":{"provider":"github","host":"github.com","repository":"octo/tools","number":1},)"
        R"("facts":{"threads":3}},)"
        R"({"id":{"provider":"github","host":"github.com","repository":"octo/tools","number":2},)"
        R"("details":{"requestedUsers":["ada"],"runningChecks":[0],"later":1}}]})");
    PullRequestDetails expected;
    expected.requestedUsers = {"ada"};
    expected.runningChecks = {"lint"};
    EXPECT_EQ(file.load(snapshot), (DetailsByID{{makePullRequest(2).id, expected}}));
}

TEST_F(PullRequestDetailsFileTest, thatIsNoSuchDocumentCountsAsAbsentAndStays)
{
    EXPECT_THAT(file.load(snapshot), IsEmpty());
    file.save(snapshot, details);
    const std::string whole = contentsOf(file.fileURL);
    const std::string otherVersion = R"({"version":2)" + whole.substr(12);
    const std::string unknownVerdict = [&] {
        std::string text = whole;
        return text.replace(text.find("dismissed"), 9, "loved");
    }();
    const auto withPlace = [&](const char* place) {
        std::string text = whole;
        return text.replace(text.find("[0]"), 3, place);
    };
    for (const std::string& text :
         {withPlace("[1]"),
          withPlace("[-1]"),
          withPlace("[\"lint\"]"),
          std::string(),
          whole.substr(0, whole.size() / 2),
          otherVersion,
          unknownVerdict,
          std::string("[]"),
          std::string("\xFF"),
          std::string(R"({"version":1})")}) {
        writeFile(file.fileURL, text);
        EXPECT_THAT(file.load(snapshot), IsEmpty()) << text;
        EXPECT_EQ(contentsOf(file.fileURL), text);
    }
}

TEST_F(PullRequestDetailsFileTest, of200MegabytesIsNotRead)
{
    writeFile(file.fileURL, "{");
    std::filesystem::resize_file(file.fileURL, 200'000'000);
    EXPECT_THAT(file.load(snapshot), IsEmpty());
}

TEST_F(PullRequestDetailsFileTest, thatIsAFolderCountsAsAbsentAndSavingSaysSo)
{
    std::filesystem::create_directory(file.fileURL);
    EXPECT_THAT(file.load(snapshot), IsEmpty());
    EXPECT_EQ(
        messageOf<CacheWriteError>([this] { file.save(snapshot, details); }),
        "The details of the pull requests could not be saved in " + file.fileURL.string()
            + ": Is a directory.");
}

TEST_F(PullRequestDetailsFileTest, isWrittenByTheThreadThatWritesTheSnapshot)
{
    SnapshotWriter writer(cache);
    writer.save(snapshot, std::make_shared<const DetailsByID>(details));
    writer.flush();
    EXPECT_EQ(cache.load(), snapshot);
    EXPECT_EQ(file.load(snapshot), details);
}

}  // namespace
