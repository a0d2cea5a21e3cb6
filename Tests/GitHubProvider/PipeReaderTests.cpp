#include "GitHubProvider/Process/PipeReader.h"

#include "PullRequestKit/Errors.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <unistd.h>

namespace {

using namespace GitHub;
using PullRequestKit::ProviderError;
using testing::ThrowsMessage;

/// A pipe whose writing end the test holds.
class PipeReaderTest : public testing::Test {
protected:
    PipeReaderTest()
    {
        int ends[2] = {-1, -1};
        EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
        _readingEnd = FileDescriptor(ends[0]);
        _writingEnd = FileDescriptor(ends[1]);
    }

    PipeReader reader(std::size_t limit) { return {std::move(_readingEnd), "gh", limit}; }

    void write(const std::string& bytes)
    {
        EXPECT_EQ(
            ::write(_writingEnd.number(), bytes.data(), bytes.size()),
            static_cast<ssize_t>(bytes.size()));
    }

    void closeWritingEnd() { _writingEnd.close(); }

private:
    FileDescriptor _readingEnd;
    FileDescriptor _writingEnd;
};

TEST_F(PipeReaderTest, gathersPiecesUntilTheEndOfFile)
{
    PipeReader pipe = reader(100);
    write("one ");
    pipe.read();
    write("two");
    pipe.read();
    EXPECT_FALSE(pipe.isAtEnd());
    closeWritingEnd();
    pipe.read();
    EXPECT_TRUE(pipe.isAtEnd());
    EXPECT_LT(pipe.descriptor(), 0);
    EXPECT_EQ(pipe.takeBytes(), "one two");
}

TEST_F(PipeReaderTest, keepsAsMuchAsTheLimit)
{
    PipeReader pipe = reader(4);
    write("1234");
    pipe.read();
    EXPECT_EQ(pipe.takeBytes(), "1234");
}

TEST_F(PipeReaderTest, refusesMoreThanTheLimitOnceAndKeepsNothing)
{
    PipeReader pipe = reader(4);
    write("1234");
    pipe.read();
    write("5");
    EXPECT_THAT(
        [&] { pipe.read(); },
        ThrowsMessage<ProviderError>(
            "The output of gh was refused because it is larger than 4 bytes."));
    write("6");
    pipe.read();
    EXPECT_FALSE(pipe.isAtEnd());
    EXPECT_EQ(pipe.takeBytes(), "");
}

TEST_F(PipeReaderTest, dropsEverythingWhenItDiscards)
{
    PipeReader pipe = reader(4);
    write("1234");
    pipe.read();
    pipe.discard();
    write("56789");
    pipe.read();
    EXPECT_EQ(pipe.takeBytes(), "");
}

TEST(PipeReader, reportsAFailureToReadAndIsAtItsEnd)
{
    PipeReader folder(FileDescriptor(::open("/", O_RDONLY | O_CLOEXEC)), "gh", 100);
    EXPECT_THAT(
        [&] { folder.read(); },
        ThrowsMessage<ProviderError>("The output of gh could not be read: Is a directory."));
    EXPECT_TRUE(folder.isAtEnd());
}

}  // namespace
