#include "Tarnwick/Persistence/BlockedPullRequestsFile.h"

#include "Persistence/FileTrouble.h"

namespace {

using namespace TestSupport;

class BlockedPullRequestsFileTest : public testing::Test {
protected:
    Folder folder;
    BlockedPullRequestsFile file{folder / "blocked.json"};
    BlockedPullRequests some{
        date("2024-05-01T12:00:00Z"), {{makePullRequest(7), date("2024-05-01T11:00:00Z")}}};
};

TEST_F(BlockedPullRequestsFileTest, bringsBackWhatWasSaved)
{
    file.save(some);
    EXPECT_EQ(file.load(), some);
    EXPECT_THAT(
        contentsOf(file.path),
        StartsWith(R"({"version":1,"updatedAt":"2024-05-01T12:00:00Z","blocked":[{)"
                   R"("listedAt":"2024-05-01T11:00:00Z","pullRequest":{"id":)"));
}

}  // namespace
