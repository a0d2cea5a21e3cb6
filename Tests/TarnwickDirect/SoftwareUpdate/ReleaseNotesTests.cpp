#include "TarnwickDirect/SoftwareUpdate/ReleaseNotes.h"

#include <gtest/gtest.h>

namespace {

std::string plain(const char* notes)
{
    return TarnwickDirect::plainReleaseNotes(QString::fromUtf8(notes)).toStdString();
}

TEST(ReleaseNotes, plainTextStays)
{
    EXPECT_EQ(plain("- faster\n- calmer, 1 < 2"), "- faster\n- calmer, 1 < 2");
    EXPECT_EQ(plain(""), "");
}

TEST(ReleaseNotes, htmlLosesItsMarks)
{
    EXPECT_EQ(
        plain("<h1>Version 2</h1><p>Faster &amp; <b>calmer</b>.</p><ul><li>lists</li></ul>"),
        "Version 2\nFaster & calmer.\n• lists");
}

TEST(ReleaseNotes, listsAndHeadingsCanBeToldApart)
{
    EXPECT_EQ(
        plain("<p>Calm.</p><h2>Added</h2><ul><li>one</li><li>two</li></ul><h2>Mended</h2>"
              "<ol><li>first<br>still first</li><li>second</li></ol>"),
        "Calm.\n\nAdded\n• one\n• two\n\nMended\n1. first\nstill first\n2. second");
}

TEST(ReleaseNotes, scriptsStylesAndPicturesAreLeftOut)
{
    EXPECT_EQ(
        plain("<style>p { color: red }</style><script>alert(1)</script>"
              "<p>Calmer.<img src=\"https://example.com/seen.png\"></p>"),
        "Calmer.");
}

TEST(ReleaseNotes, whatTurnsOrHidesTextIsLeftOut)
{
    EXPECT_EQ(
        plain("a\xe2\x80\xae"
              "b\xe2\x80\x8b"
              "c\x1b[31m\r\nd"),
        "abc[31m\nd");
}

TEST(ReleaseNotes, longNotesEnd)
{
    const std::string limit(20'000, 'n');
    EXPECT_EQ(plain(limit.c_str()), limit);
    EXPECT_EQ(plain((limit + "n").c_str()), limit + "…");
}

}  // namespace
