#include "Tarnwick/Interface/List/FindMatches.h"

#include "Tarnwick/Interface/List/FindText.h"

#include <gmock/gmock.h>

namespace {

using namespace Qt::StringLiterals;
using namespace Tarnwick;
using namespace testing;

std::vector<TextRange> found(const QString& text, const QString& typed)
{
    return matchesIn(text, foldedWords(typed));
}

TEST(FindMatches, areWhereTheWordsStand)
{
    EXPECT_THAT(found(u"Move sessions to a store"_s, u"ses"_s), ElementsAre(TextRange{5, 8}));
    EXPECT_THAT(
        found(u"Sessions of a session"_s, u"SESSION"_s),
        ElementsAre(TextRange{0, 7}, TextRange{14, 21}));
    EXPECT_THAT(found(u"Move sessions"_s, u"quay"_s), IsEmpty());
    EXPECT_THAT(found(u"Move sessions"_s, QString()), IsEmpty());
}

TEST(FindMatches, areInOrderAndOneWhereTheyTouch)
{
    EXPECT_THAT(
        found(u"northmere/quay"_s, u"quay nort"_s),
        ElementsAre(TextRange{0, 4}, TextRange{10, 14}));
    EXPECT_THAT(found(u"sessions"_s, u"ses sion"_s), ElementsAre(TextRange{0, 7}));
    EXPECT_THAT(found(u"aaaa"_s, u"aa"_s), ElementsAre(TextRange{0, 4}));
}

TEST(FindMatches, countTheLettersOfTheTextAndNotTheFoldedOnes)
{
    EXPECT_THAT(found(u"Cafe\u0301 vu"_s, u"cafe"_s), ElementsAre(TextRange{0, 5}));
    EXPECT_THAT(found(u"Cafe\u0301 vu"_s, u"vu"_s), ElementsAre(TextRange{6, 8}));
    EXPECT_THAT(found(u"\uFB01nd it"_s, u"it"_s), ElementsAre(TextRange{4, 6}));
    EXPECT_THAT(found(u"\uFB01nd it"_s, u"fin"_s), ElementsAre(TextRange{0, 2}));
    EXPECT_THAT(found(u"🚀 ship"_s, u"ship"_s), ElementsAre(TextRange{3, 7}));
}

TEST(FindMatches, ofACutTextAreThoseThatItShows)
{
    const std::vector<TextRange> ranges{{0, 3}, {4, 8}, {9, 12}};
    EXPECT_EQ(rangesShown(ranges, u"abcdefghijkl"_s, u"abcdefghijkl"_s), ranges);
    EXPECT_THAT(
        rangesShown(ranges, u"abcdefghijkl"_s, u"abcdef…"_s),
        ElementsAre(TextRange{0, 3}, TextRange{4, 6}));
    EXPECT_THAT(
        rangesShown(ranges, u"abcdefghijkl"_s, u"ab…kl"_s),
        ElementsAre(TextRange{0, 2}, TextRange{3, 5}));
    EXPECT_THAT(rangesShown(ranges, u"abcdefghijkl"_s, u"…"_s), IsEmpty());
    EXPECT_THAT(rangesShown(ranges, u"abcdefghijkl"_s, QString()), IsEmpty());
}

TEST(FindMatches, withinAPartCountFromItsStart)
{
    EXPECT_THAT(
        rangesWithin({{0, 3}, {4, 8}}, {2, 6}), ElementsAre(TextRange{0, 1}, TextRange{2, 4}));
}

}  // namespace
