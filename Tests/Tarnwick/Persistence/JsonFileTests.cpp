#include "Tarnwick/Persistence/JsonFile.h"

#include "Persistence/FileTrouble.h"
#include "Support/Errors.h"
#include "Tarnwick/Persistence/BlockedPullRequestsFile.h"
#include "Tarnwick/Persistence/KnownTurnsFile.h"
#include "Tarnwick/Persistence/PullRequestFactsFile.h"

namespace {

using namespace TestSupport;

struct BlockedCase {
    using File = BlockedPullRequestsFile;
    static constexpr const char* name = "blocked.json";
    static constexpr const char* subject = "The blocked pull requests";

    static BlockedPullRequests some()
    {
        return {date("2024-05-01T12:00:00Z"), {{makePullRequest(7), date("2024-05-01T11:00:00Z")}}};
    }

    static bool isNothing(const BlockedPullRequests& loaded)
    {
        return loaded == BlockedPullRequests();
    }
};

struct TurnsCase {
    using File = KnownTurnsFile;
    static constexpr const char* name = "turns.json";
    static constexpr const char* subject = "The known turns";

    static KnownTurns some()
    {
        return {
            "octo\nmyself\n",
            date("2024-05-01T12:00:00Z"),
            {{makePullRequest(7).id, date("2024-05-01T12:00:00Z"), Whose::you, "c2"}}};
    }

    static bool isNothing(const KnownTurns& loaded) { return loaded == KnownTurns(); }
};

struct FactsCase {
    using File = PullRequestFactsFile;
    static constexpr const char* name = "pull-request-facts.json";
    static constexpr const char* subject = "The facts of the pull requests";

    static KeptFacts some()
    {
        return {
            std::make_shared<const FactsByID>(FactsByID{{makePullRequest(7).id, {}}}),
            Quota{5000, 312, date("2024-05-01T14:20:00Z")}};
    }

    static bool isNothing(const KeptFacts& loaded)
    {
        return loaded.facts == nullptr && !loaded.quota;
    }
};

template<typename Case>
class JsonFiles : public testing::Test {
protected:
    using File = typename Case::File;

    Folder folder;
    File file = File::beside(PullRequestDiskCache{folder / "pull-requests.json"});
};

using Cases = testing::Types<BlockedCase, TurnsCase, FactsCase>;
TYPED_TEST_SUITE(JsonFiles, Cases);

TYPED_TEST(JsonFiles, lieBesideTheCacheForTheirOwnerAlone)
{
    this->file.save(TypeParam::some());
    EXPECT_THAT(this->folder.names(), ElementsAre(TypeParam::name));
    EXPECT_EQ(modeOf(this->file.path), 0600U);
    EXPECT_FALSE(TypeParam::isNothing(this->file.load()));
}

TYPED_TEST(JsonFiles, areEmptyWhenTheyAreNotThereOrOfNoUse)
{
    const auto& path = this->file.path;
    EXPECT_TRUE(TypeParam::isNothing(this->file.load()));
    this->file.save(TypeParam::some());
    const std::string good = contentsOf(path);
    std::string later = good;
    later.replace(later.find("1,"), 1, "2");
    for (const std::string& text :
         {std::string(), good.substr(0, good.size() / 2), std::string("[]"), later}) {
        writeFile(path, text);
        EXPECT_TRUE(TypeParam::isNothing(this->file.load())) << text;
        EXPECT_EQ(contentsOf(path), text);
    }
    writeFile(path, good);
    std::filesystem::resize_file(path, std::uintmax_t{200} * 1024 * 1024);
    EXPECT_TRUE(TypeParam::isNothing(this->file.load())) << "200 MiB";
}

TYPED_TEST(JsonFiles, sayWhyTheyCannotBeSaved)
{
    std::filesystem::create_directory(this->file.path);
    EXPECT_TRUE(TypeParam::isNothing(this->file.load()));
    EXPECT_EQ(
        messageOf<CacheWriteError>([this] { this->file.save(TypeParam::some()); }),
        std::string(TypeParam::subject) + " could not be saved in " + this->file.path.string()
            + ": Is a directory.");
}

}  // namespace
