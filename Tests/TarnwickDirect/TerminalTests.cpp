#include "TarnwickDirect/CommandLine/Terminal.h"

#include <QString>

#include <clocale>
#include <cwchar>

#include <gmock/gmock.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace {

using namespace TarnwickDirect;

TEST(Terminal, aPipeIsNone)
{
    int ends[2] = {-1, -1};
    ASSERT_EQ(::pipe(ends), 0);
    const TerminalTraits traits = terminalTraits(ends[1]);
    EXPECT_FALSE(traits.isTerminal);
    EXPECT_FALSE(traits.hasColors);
    EXPECT_EQ(traits.columns, 0);
    ::close(ends[0]);
    ::close(ends[1]);
}

/// A terminal of this width, for as long as this lives.
class PseudoTerminal {
public:
    explicit PseudoTerminal(unsigned short columns)
    {
        const winsize size{.ws_row = 24, .ws_col = columns, .ws_xpixel = 0, .ws_ypixel = 0};
        EXPECT_EQ(::openpty(&_controller, &_terminal, nullptr, nullptr, &size), 0);
    }

    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    ~PseudoTerminal()
    {
        ::close(_terminal);
        ::close(_controller);
    }

    TerminalTraits traits() const { return terminalTraits(_terminal); }

private:
    int _controller = -1;
    int _terminal = -1;
};

/// The environment as it was comes back.
class TerminalEnvironment : public testing::Test {
protected:
    void TearDown() override
    {
        qputenv("TERM", _kind);
        _noColor.isNull() ? qunsetenv("NO_COLOR") : qputenv("NO_COLOR", _noColor);
    }

private:
    QByteArray _kind = qgetenv("TERM");
    QByteArray _noColor = qgetenv("NO_COLOR");
};

TEST_F(TerminalEnvironment, saysWhatATerminalCanShow)
{
    qunsetenv("NO_COLOR");
    qputenv("TERM", "xterm");
    const TerminalTraits usual = PseudoTerminal(97).traits();
    EXPECT_TRUE(usual.isTerminal && usual.canErase && usual.hasColors);
    EXPECT_EQ(usual.columns, 97);
    EXPECT_EQ(PseudoTerminal(0).traits().columns, 80);
}

TEST_F(TerminalEnvironment, saysWhereThereAreNoColors)
{
    qputenv("TERM", "xterm");
    qputenv("NO_COLOR", "1");
    EXPECT_FALSE(PseudoTerminal(80).traits().hasColors);
    EXPECT_TRUE(PseudoTerminal(80).traits().canErase);
    qputenv("NO_COLOR", "");
    EXPECT_TRUE(PseudoTerminal(80).traits().hasColors);
    for (const char* const kind : {"dumb", ""}) {
        qputenv("TERM", kind);
        const TerminalTraits traits = PseudoTerminal(80).traits();
        EXPECT_TRUE(traits.isTerminal);
        EXPECT_FALSE(traits.canErase || traits.hasColors);
    }
}

TEST(Terminal, stylesOnlyWithColors)
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

TEST(Terminal, aMessageKeepsItsLines)
{
    EXPECT_EQ(message("one\r\n\ttwo\x1b[2J\n\nthree"), "one\n two�[2J\n\nthree");
    EXPECT_EQ(message("a\rb\n"), "a�b\n");
}

TEST(Terminal, countsColumns)
{
    EXPECT_EQ(displayWidth("abc"), 3);
    EXPECT_EQ(displayWidth("日本"), 4);
    EXPECT_EQ(displayWidth("e\u0301"), 1);
    EXPECT_EQ(displayWidth("🦀"), 2);
    EXPECT_EQ(displayWidth("└─ "), 3);
}

TEST(Terminal, countsTheLargerNumberWhereTerminalsDiffer)
{
    EXPECT_EQ(displayWidth("☎"), 1);
    EXPECT_EQ(displayWidth("☎\uFE0F"), 2);
    EXPECT_EQ(displayWidth("🦀\uFE0F"), 2);
    EXPECT_EQ(displayWidth("👩\u200D👧"), 4);
    EXPECT_EQ(displayWidth("a\u00ADb"), 3);
    EXPECT_EQ(displayWidth("\uFFF9a\uFFFB"), 3);
    EXPECT_EQ(displayWidth("\U00013430"), 1);
}

TEST(Terminal, countsNoLessThanTheCLibrary)
{
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    for (char32_t character = 0xA0; character < 0x110000; ++character) {
        const bool isSurrogate = character >= 0xD800 && character < 0xE000;
        if (!isSurrogate) {
            const std::string text = QString::fromUcs4(&character, 1).toStdString();
            EXPECT_GE(displayWidth(text), ::wcwidth(static_cast<wchar_t>(character)))
                << std::hex << static_cast<std::uint32_t>(character);
        }
    }
}

TEST(Terminal, cutsAtWhatAReaderSeesAsOneCharacter)
{
    EXPECT_EQ(elided("abc", 3), "abc");
    EXPECT_EQ(elided("abcd", 3), "ab…");
    EXPECT_EQ(elided("日本語", 4), "日…");
    EXPECT_EQ(elided("e\u0301e\u0301e\u0301", 2), "e\u0301…");
}

}  // namespace
