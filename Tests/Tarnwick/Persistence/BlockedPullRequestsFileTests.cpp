#include "Tarnwick/Persistence/BlockedPullRequestsFile.h"

#include "Persistence/FileTrouble.h"

#include <gmock/gmock.h>

namespace {

using namespace FileTrouble;
using namespace Tarnwick;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;
using TestSupport::date;
using TestSupport::makePullRequest;

class BlockedPullRequestsFileTest : public testing::Test {
protected:
    Folder folder;
    BlockedPullRequestsFile file{folder / "blocked.json"};
    BlockedPullRequests some{
        date("2024-05-01T12:00:00Z"), {{makePullRequest(7), date("2024-05-01T11:00:00Z")}}};
};

TEST_F(BlockedPullRequestsFileTest, liesBesideTheCache)
{
    EXPECT_EQ(
        BlockedPullRequestsFile::beside(PullRequestDiskCache{"/data/pull-requests.json"}).path,
        "/data/blocked.json");
}

TEST_F(BlockedPullRequestsFileTest, bringsBackWhatWasSaved)
{
    file.save(some);
    EXPECT_EQ(file.load(), some);
    EXPECT_EQ(modeOf(file.path), 0600U);
    EXPECT_THAT(folder.names(), ElementsAre("blocked.json"));
    EXPECT_THAT(
        contentsOf(file.path),
        StartsWith(R"({"version":1,"updatedAt":"2024-05-01T12:00:00Z","blocked":[{)"
                   R"("listedAt":"2024-05-01T11:00:00Z","pullRequest":{"id":)"));
}

TEST_F(BlockedPullRequestsFileTest, isEmptyWhenItIsNotThereOrOfNoUse)
{
    EXPECT_EQ(file.load(), BlockedPullRequests());
    file.save(some);
    const std::string good = contentsOf(file.path);
    std::string later = good;
    later.replace(later.find("1,"), 1, "2");
    for (const std::string& text :
         {std::string(), good.substr(0, good.size() / 2), std::string("[]"), later}) {
        writeFile(file.path, text);
        EXPECT_EQ(file.load(), BlockedPullRequests()) << text;
        EXPECT_EQ(contentsOf(file.path), text);
    }
    std::filesystem::remove(file.path);
    std::filesystem::create_directory(file.path);
    EXPECT_EQ(file.load(), BlockedPullRequests());
}

TEST_F(BlockedPullRequestsFileTest, saysWhyItCannotBeSaved)
{
    std::filesystem::create_directory(file.path);
    try {
        file.save(some);
        FAIL();
    } catch (const CacheWriteError& error) {
        EXPECT_THAT(error.what(), HasSubstr("Is a directory"));
    }
}

}  // namespace
