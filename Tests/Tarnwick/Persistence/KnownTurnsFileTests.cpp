#include "Tarnwick/Persistence/KnownTurnsFile.h"

#include "Persistence/FileTrouble.h"

#include <gmock/gmock.h>

namespace {

using namespace FileTrouble;
using namespace PullRequestKit;
using namespace Tarnwick;
using testing::ElementsAre;
using TestSupport::date;
using TestSupport::makePullRequest;

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

TEST_F(KnownTurnsFileTest, liesBesideTheCache)
{
    EXPECT_EQ(
        KnownTurnsFile::beside(PullRequestDiskCache{"/data/pull-requests.json"}).path,
        "/data/turns.json");
}

TEST_F(KnownTurnsFileTest, bringsBackWhatWasSaved)
{
    file.save(some);
    EXPECT_EQ(file.load(), some);
    EXPECT_EQ(modeOf(file.path), 0600U);
    EXPECT_THAT(folder.names(), ElementsAre("turns.json"));
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

TEST_F(KnownTurnsFileTest, isEmptyWhenItIsNotThereOrOfNoUse)
{
    EXPECT_EQ(file.load(), KnownTurns());
    file.save(some);
    const std::string good = contentsOf(file.path);
    std::string later = good;
    later.replace(later.find("1,"), 1, "2");
    for (const std::string& text :
         {std::string(), good.substr(0, good.size() / 2), std::string("[]"), later}) {
        writeFile(file.path, text);
        EXPECT_EQ(file.load(), KnownTurns()) << text;
        EXPECT_EQ(contentsOf(file.path), text);
    }
    std::filesystem::remove(file.path);
    std::filesystem::create_directory(file.path);
    EXPECT_EQ(file.load(), KnownTurns());
    EXPECT_THROW(file.save(some), CacheWriteError);
}

}  // namespace
