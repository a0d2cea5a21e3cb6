#include "Tarnwick/Model/ReadAhead.h"

#include "Persistence/FileTrouble.h"
#include "Tarnwick/Persistence/IniDefaultsStore.h"

#include <stdexcept>

#include <gmock/gmock.h>

namespace {

using namespace FileTrouble;
using namespace Tarnwick;

class ReadAheadTest : public testing::Test {
protected:
    std::shared_ptr<DefaultsStore> openDefaults() const
    {
        return std::make_shared<IniDefaultsStore>(folder / "settings.ini");
    }

    ReadAhead readAhead() const
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

TEST_F(ReadAheadTest, yieldsWhatLiesOnDisk)
{
    writeText(*openDefaults(), "editor.projectDirectory", "/home/octo");
    saveAccount("octo");
    ReadAhead reading = readAhead();
    EXPECT_EQ(readText(*reading.defaults(), "editor.projectDirectory"), "/home/octo");
    const auto list = reading.takeList();
    ASSERT_TRUE(list);
    EXPECT_EQ(list->snapshot.account, "octo");
}

TEST_F(ReadAheadTest, yieldsTheSettingsOfAFreshInstallationAndNoListWithoutFiles)
{
    ReadAhead reading = readAhead();
    EXPECT_EQ(reading.settings(), Settings());
    EXPECT_FALSE(reading.takeList());
}

TEST_F(ReadAheadTest, leavesOutAListThatWasTakenForOtherReviewers)
{
    CachedPullRequestSnapshot snapshot;
    snapshot.reviewerScope = PullRequestKit::ReviewerScope::any;
    cache.save(snapshot);
    ReadAhead reading = readAhead();
    EXPECT_EQ(reading.settings().reviewerFilter, ReviewerFilter::myself);
    EXPECT_FALSE(reading.takeList());
}

TEST_F(ReadAheadTest, failsTowardsWhoeverAsks)
{
    const auto fail = []() -> std::shared_ptr<DefaultsStore> {
        throw std::runtime_error("no settings");
    };
    ReadAhead reading(fail, cache);
    EXPECT_THROW(reading.settings(), std::runtime_error);
    EXPECT_THROW(reading.takeList(), std::runtime_error);
}

TEST_F(ReadAheadTest, mayGoBeforeAnybodyAsks)
{
    saveAccount("octo");
    const ReadAhead reading = readAhead();
}

}  // namespace
