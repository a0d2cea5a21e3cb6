#include "Tarnwick/Persistence/KnownTurnsFile.h"

#include "Persistence/FileTrouble.h"

namespace {

using namespace TestSupport;

class KnownTurnsFileTest : public testing::Test {
protected:
    Folder folder;
    KnownTurnsFile file{folder / "turns.json"};
    KnownTurns some{
        "octo\nmyself\n",
        date("2024-05-01T12:00:00Z"),
        {{makePullRequest(7).id, date("2024-05-01T12:00:00Z"), Whose::you, "c2"},
         {makePullRequest(8).id, date("2024-05-01T11:00:00Z"), std::nullopt, std::nullopt}}};
};

TEST_F(KnownTurnsFileTest, bringsBackWhatWasSaved)
{
    file.save(some);
    EXPECT_EQ(file.load(), some);
}

TEST_F(KnownTurnsFileTest, hasTheDocumentedForm)
{
    some.entries.pop_back();
    file.save(some);
    EXPECT_EQ(
        contentsOf(file.path),
        R"({"version":1,"updatedAt":"2024-05-01T12:00:00Z","scope":"octo\nmyself\n",)"
        R"("pullRequests":[{"id":{"provider":"github","host":"github.com",)"
        R"("repository":"octo/tools","number":7},"listedAt":"2024-05-01T12:00:00Z",)"
        R"("whose":"you","toldHead":"c2"}]})");
}

}  // namespace
