#include "TarnwickDirect/CommandLine/LastLine.h"

#include "Fakes/EventLoop.h"

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace {

using TarnwickDirect::LastLine;

/// A pipe with the writer on one end.
class LastLineTest : public testing::Test {
protected:
    LastLineTest()
    {
        EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
        EXPECT_EQ(::fcntl(ends[0], F_SETFL, O_NONBLOCK), 0);
        line = std::make_unique<LastLine>(ends[1]);
        QObject::connect(line.get(), &LastLine::ended, [this](int number) { error = number; });
    }

    ~LastLineTest() override
    {
        line.reset();
        ::close(ends[1]);
        closeReader();
    }

    void closeReader()
    {
        if (ends[0] >= 0) {
            ::close(std::exchange(ends[0], -1));
        }
    }

    std::string read()
    {
        std::string text(1 << 20, '\0');
        const ssize_t count = ::read(ends[0], text.data(), text.size());
        text.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
        return text;
    }

    int ends[2] = {-1, -1};
    std::unique_ptr<LastLine> line;
    int error = 0;
};

TEST_F(LastLineTest, writesEachLineThatIsTaken)
{
    line->write("one");
    EXPECT_EQ(read(), "one\n");
    line->write("two");
    EXPECT_EQ(read(), "two\n");
}

TEST_F(LastLineTest, keepsTheLastLineForAReaderThatDoesNotRead)
{
    const std::string big(200'000, 'x');
    line->write(big);
    for (int number = 0; number < 1'000; ++number) {
        line->write(std::to_string(number));
    }
    std::string all;
    EXPECT_TRUE(TestSupport::eventually([&] {
        all += read();
        return all.ends_with("999\n");
    }));
    EXPECT_EQ(all, big + "\n999\n");
}

TEST_F(LastLineTest, noticesTheEndOfTheReaderWithoutWriting)
{
    line->write("one");
    closeReader();
    EXPECT_TRUE(TestSupport::eventually([&] { return error == EPIPE; }));
}

TEST_F(LastLineTest, saysThatNobodyReadsAnyMore)
{
    closeReader();
    line->write("one");
    EXPECT_EQ(error, EPIPE);
}

TEST(LastLine, tellsOfAFullDisk)
{
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    ASSERT_GE(full, 0);
    LastLine line(full);
    int error = 0;
    QObject::connect(&line, &LastLine::ended, [&](int number) { error = number; });
    line.write("one");
    EXPECT_EQ(error, ENOSPC);
    ::close(full);
}

}  // namespace
