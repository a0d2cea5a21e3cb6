#include "Tarnwick/Persistence/SnapshotWriter.h"

#include "Persistence/FileTrouble.h"

namespace {

using namespace TestSupport;

CachedPullRequestSnapshot snapshotOf(const std::string& account)
{
    CachedPullRequestSnapshot snapshot;
    snapshot.account = account;
    return snapshot;
}

class SnapshotWriterTest : public testing::Test {
protected:
    Folder folder;
    PullRequestDiskCache cache{folder / "pull-requests.json"};
};

TEST_F(SnapshotWriterTest, hasEverythingOnDiskAfterAFlush)
{
    SnapshotWriter writer(cache);
    writer.save(snapshotOf("octo"));
    writer.flush();
    EXPECT_THAT(cache.load(), Optional(snapshotOf("octo")));
}

TEST_F(SnapshotWriterTest, hasEverythingOnDiskAtItsEnd)
{
    {
        SnapshotWriter writer(cache);
        for (int number = 0; number <= 20; ++number) {
            writer.save(snapshotOf(std::to_string(number)));
        }
    }
    EXPECT_THAT(cache.load(), Optional(snapshotOf("20")));
}

TEST_F(SnapshotWriterTest, flushesAtOnceWithNothingToWrite)
{
    SnapshotWriter writer(cache);
    writer.flush();
    EXPECT_EQ(cache.load(), std::nullopt);
}

TEST_F(SnapshotWriterTest, dropsWhatCannotBeWrittenAndGoesOn)
{
    SnapshotWriter writer(cache);
    writer.save(snapshotOf("first"));
    writer.flush();
    {
        const LargestFile limit(4096);
        writer.save(snapshotOf(std::string(100'000, 'a')));
        writer.flush();
    }
    EXPECT_THAT(cache.load(), Optional(snapshotOf("first")));
    writer.save(snapshotOf("third"));
    writer.flush();
    EXPECT_THAT(cache.load(), Optional(snapshotOf("third")));
}

TEST_F(SnapshotWriterTest, endsWithTheLastOfManySnapshots)
{
    SnapshotWriter writer(cache);
    for (int number = 1; number <= 100; ++number) {
        writer.save(snapshotOf(std::to_string(number)));
    }
    writer.flush();
    EXPECT_THAT(cache.load(), Optional(snapshotOf("100")));
}

}  // namespace
