#include "TarnwickDirect/CommandLine/Terminal.h"

#include <gmock/gmock.h>
#include <unistd.h>

namespace {

using namespace TarnwickDirect;

TEST(Terminal, aPipeIsNone)
{
    int ends[2] = {-1, -1};
    ASSERT_EQ(::pipe(ends), 0);
    const TerminalTraits traits = terminalTraits(ends[1]);
    EXPECT_FALSE(traits.isTerminal);
    EXPECT_FALSE(traits.hasColours);
    EXPECT_EQ(traits.columns, 0);
    ::close(ends[0]);
    ::close(ends[1]);
}

TEST(Terminal, stylesOnlyWithColours)
{
    EXPECT_EQ(styled("open", Style::green, true), "\x1b[32mopen\x1b[0m");
    EXPECT_EQ(styled("open", Style::green, false), "open");
    EXPECT_EQ(styled("open", Style::plain, true), "open");
    EXPECT_EQ(styled("", Style::green, true), "");
}

TEST(Terminal, noTextCanSteerIt)
{
    EXPECT_EQ(singleLine("a\x1b[31mb\nc\rd\te"), "a�[31mb�c�d�e");
    EXPECT_EQ(singleLine("a\u202Eb\u2028c\u0085d"), "a�b�c�d");
    EXPECT_EQ(singleLine("Füße 日本 🦀 שלום"), "Füße 日本 🦀 שלום");
}

TEST(Terminal, countsColumns)
{
    EXPECT_EQ(displayWidth("abc"), 3);
    EXPECT_EQ(displayWidth("日本"), 4);
    EXPECT_EQ(displayWidth("e\u0301"), 1);
    EXPECT_EQ(displayWidth("🦀"), 2);
    EXPECT_EQ(displayWidth("└─ "), 3);
}

TEST(Terminal, cutsAtWhatAReaderSeesAsOneCharacter)
{
    EXPECT_EQ(elided("abc", 3), "abc");
    EXPECT_EQ(elided("abcd", 3), "ab…");
    EXPECT_EQ(elided("日本語", 4), "日…");
    EXPECT_EQ(elided("e\u0301e\u0301e\u0301", 2), "e\u0301…");
}

}  // namespace
