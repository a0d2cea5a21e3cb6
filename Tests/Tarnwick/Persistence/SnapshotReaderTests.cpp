#include "Tarnwick/Persistence/SnapshotReader.h"

#include "Persistence/FileTrouble.h"

#include <gmock/gmock.h>

namespace {

using namespace FileTrouble;
using namespace Tarnwick;
using testing::Optional;

class SnapshotReaderTest : public testing::Test {
protected:
    Folder folder;
    PullRequestDiskCache cache{folder / "pull-requests.json"};
};

TEST_F(SnapshotReaderTest, yieldsWhatLiesOnDisk)
{
    CachedPullRequestSnapshot snapshot;
    snapshot.account = "octo";
    cache.save(snapshot);
    SnapshotReader reader(cache);
    EXPECT_THAT(reader.take(), Optional(snapshot));
}

TEST_F(SnapshotReaderTest, yieldsNothingWithoutAFile)
{
    SnapshotReader reader(cache);
    EXPECT_EQ(reader.take(), std::nullopt);
}

TEST_F(SnapshotReaderTest, mayGoBeforeAnybodyAsks)
{
    cache.save({});
    const SnapshotReader reader(cache);
}

}  // namespace
