#include "Tarnwick/Model/Preload.h"

#include "Persistence/FileTrouble.h"
#include "Tarnwick/Persistence/IniDefaultsStore.h"

#include <stdexcept>

namespace {

using namespace TestSupport;

class PreloadTest : public testing::Test {
protected:
    std::shared_ptr<DefaultsStore> openDefaults() const
    {
        return std::make_shared<IniDefaultsStore>(folder / "settings.ini");
    }

    Preload preload() const
    {
        return {[this] { return openDefaults(); }, cache};
    }

    void saveAccount(const char* account) const
    {
        CachedPullRequestSnapshot snapshot;
        snapshot.account = account;
        cache.save(snapshot);
    }

    Folder folder;
    PullRequestDiskCache cache{folder / "pull-requests.json"};
};

TEST_F(PreloadTest, yieldsWhatLiesOnDisk)
{
    writeText(*openDefaults(), "editor.projectDirectory", "/home/octo");
    saveAccount("octo");
    Preload reading = preload();
    EXPECT_EQ(readText(*reading.defaults(), "editor.projectDirectory"), "/home/octo");
    const auto list = reading.takeList();
    ASSERT_TRUE(list);
    EXPECT_EQ(list->snapshot.account, "octo");
}

TEST_F(PreloadTest, yieldsTheSettingsOfAFreshInstallationAndNoListWithoutFiles)
{
    Preload reading = preload();
    EXPECT_EQ(reading.settings(), Settings());
    EXPECT_FALSE(reading.takeList());
}

TEST_F(PreloadTest, leavesOutAListThatWasTakenForOtherReviewers)
{
    CachedPullRequestSnapshot snapshot;
    snapshot.reviewerScope = ReviewerScope::any;
    cache.save(snapshot);
    Preload reading = preload();
    EXPECT_EQ(reading.settings().reviewerFilter, ReviewerFilter::myself);
    EXPECT_FALSE(reading.takeList());
}

TEST_F(PreloadTest, failsTowardsWhoeverAsks)
{
    const auto fail = []() -> std::shared_ptr<DefaultsStore> {
        throw std::runtime_error("no settings");
    };
    Preload reading(fail, cache);
    EXPECT_THROW(reading.settings(), std::runtime_error);
    EXPECT_THROW(reading.takeList(), std::runtime_error);
}

TEST_F(PreloadTest, mayGoBeforeAnybodyAsks)
{
    saveAccount("octo");
    const Preload reading = preload();
}

}  // namespace
