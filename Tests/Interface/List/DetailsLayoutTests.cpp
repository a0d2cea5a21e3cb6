#include "Tarnwick/Interface/List/DetailsLayout.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace Tarnwick;

constexpr double gap = 5;

/// Every character is 10 wide.
const TextMeasure tens{
    [](const QString& text) { return 10.0 * static_cast<double>(text.size()); },
    [](const QString& text, Qt::TextElideMode mode, double width) {
        const auto room = static_cast<qsizetype>(width / 10);
        if (text.size() <= room) {
            return text;
        }
        if (room < 1) {
            return QString();
        }
        const auto tail = mode == Qt::ElideMiddle ? (room - 1) / 2 : 0;
        return QString(text.left(room - 1 - tail) + u'…' + text.right(tail));
    }};

const RowWording::Details details{
    false, {}, u"northmere/"_s, u"quay"_s, u"#482"_s, u"mira-k"_s, u"3h"_s};

DetailsLayout at(double width)
{
    return layOutDetails(details, {.width = width, .gap = gap}, tens);
}

TEST(DetailsLayout, piecesStandOneGapApart)
{
    const DetailsLayout layout = at(1000);
    ASSERT_EQ(layout.pieces.size(), 6U);
    EXPECT_EQ(layout.text(), u"northmere/quay #482 · mira-k · 3h"_s);
    EXPECT_EQ(layout.pieces[0].left, 0);
    EXPECT_EQ(layout.pieces[1].left, 145);
    EXPECT_EQ(layout.pieces[2].left, 190);
    EXPECT_EQ(layout.pieces[3].left, 205);
    EXPECT_EQ(layout.pieces[4].left, 270);
    EXPECT_EQ(layout.pieces[5].left, 285);
    EXPECT_FALSE(layout.isElided);
}

TEST(DetailsLayout, theOwnerGoesFirst)
{
    EXPECT_EQ(at(305).text(), u"northmere/quay #482 · mira-k · 3h"_s);
    EXPECT_EQ(at(304).text(), u"quay #482 · mira-k · 3h"_s);
    EXPECT_TRUE(at(304).isElided);
}

TEST(DetailsLayout, thenTheRepositoryIsElidedInItsMiddle)
{
    EXPECT_EQ(at(205).text(), u"quay #482 · mira-k · 3h"_s);
    EXPECT_EQ(at(200).text(), u"q…y #482 · mira-k · 3h"_s);
}

TEST(DetailsLayout, thenTheAuthorAndNeverNumberAndAge)
{
    EXPECT_EQ(at(155).text(), u"… #482 · mir… · 3h"_s);
    EXPECT_EQ(at(20).text(), u"… #482 · … · 3h"_s);
}

TEST(DetailsLayout, draftsBeginWithTheWord)
{
    RowWording::Details draft = details;
    draft.isDraft = true;
    EXPECT_EQ(
        layOutDetails(draft, {.width = 1000, .gap = gap}, tens).text(),
        u"Draft · northmere/quay #482 · mira-k · 3h"_s);
    EXPECT_EQ(
        layOutDetails(draft, {.width = 300, .gap = gap}, tens).text(),
        u"Draft · quay #482 · mira-k · 3h"_s);
}

TEST(DetailsLayout, aPullRequestWithoutAuthorHasNoEmptyPlace)
{
    RowWording::Details anonymous = details;
    anonymous.author.clear();
    EXPECT_EQ(
        layOutDetails(anonymous, {.width = 1000, .gap = gap}, tens).text(),
        u"northmere/quay #482 · 3h"_s);
}

DetailsLayout hiddenAt(double width, double scale = 1)
{
    RowWording::Details hidden = details;
    hidden.isDraft = true;
    hidden.reason = u"Hidden by Status"_s;
    hidden.repository = u"tidewatch"_s;
    return layOutDetails(hidden, {width, gap, scale}, tens);
}

TEST(DetailsLayout, aReasonStandsBeforeTheRepository)
{
    EXPECT_EQ(
        hiddenAt(1000).text(),
        u"Draft · Hidden by Status · northmere/tidewatch #482 · mira-k · 3h"_s);
    EXPECT_FALSE(hiddenAt(1000).isElided);
}

TEST(DetailsLayout, besideAReasonRepositoryAndAuthorKeepSomeLetters)
{
    EXPECT_EQ(hiddenAt(505).text(), u"Draft · Hidden by Status · tidewatch #482 · mira-k · 3h"_s);
    EXPECT_EQ(hiddenAt(460).text(), u"Draft · Hidden by Status · ti…h #482 · mira-k · 3h"_s);
    EXPECT_EQ(hiddenAt(440).text(), u"Draft · Hidden by Status · ti…h #482 · mir… · 3h"_s);
    EXPECT_EQ(hiddenAt(430).text(), u"Draft · Hidden by Status · ti…h #482 · mi… · 3h"_s);
    EXPECT_EQ(hiddenAt(440, 2).text(), u"Draft · Hidden by Status · tidewatch #482 · 3h"_s);
}

TEST(DetailsLayout, thenTheAuthorGoesAndTheRepositoryAndAtLastTheLineEnds)
{
    EXPECT_EQ(hiddenAt(380).text(), u"Draft · Hidden by Status · ti…h #482 · 3h"_s);
    EXPECT_EQ(hiddenAt(350).text(), u"Draft · Hidden by Status · … #482 · 3h"_s);
    EXPECT_EQ(hiddenAt(325).text(), u"Draft · Hidden by Status · … #482…"_s);
    EXPECT_EQ(hiddenAt(140).text(), u"Draft · Hidden…"_s);
    for (int width = 20; width < 600; ++width) {
        const DetailsLayout layout = hiddenAt(width);
        EXPECT_LE(layout.pieces.back().left + tens.width(layout.pieces.back().text), width);
        EXPECT_EQ(layout.isElided, layout.text() != hiddenAt(1000).text());
    }
}

TEST(DetailsLayout, marksWhatIsToBeFound)
{
    const DetailsLayout layout = layOutDetails(
        details, {.width = 1000, .gap = gap}, tens, {u"quay"_s, u"nort"_s, u"#48"_s, u"k"_s});
    EXPECT_EQ(layout.pieces[0].marks, (std::vector<TextRange>{{0, 4}, {10, 14}}));
    EXPECT_EQ(layout.pieces[1].marks, (std::vector<TextRange>{{0, 3}}));
    EXPECT_EQ(layout.pieces[3].marks, (std::vector<TextRange>{{5, 6}}));
    EXPECT_TRUE(layout.pieces[5].marks.empty()) << "an age is not looked for";
}

TEST(DetailsLayout, anOwnerThatMatchesIsElidedInsteadOfLeftOut)
{
    const QStringList words{u"north"_s};
    const DetailsLayout layout = layOutDetails(details, {.width = 275, .gap = gap}, tens, words);
    EXPECT_EQ(layout.text(), u"north…/quay #482 · mira-k · 3h"_s);
    EXPECT_EQ(layout.pieces[0].marks, (std::vector<TextRange>{{0, 5}}));
    EXPECT_TRUE(layout.isElided);
    EXPECT_EQ(
        layOutDetails(details, {.width = 225, .gap = gap}, tens, words).text(),
        u"…/quay #482 · mira-k · 3h"_s);
    EXPECT_EQ(
        layOutDetails(details, {.width = 225, .gap = gap}, tens, {u"quay"_s}).text(),
        u"quay #482 · mira-k · 3h"_s);
}

}  // namespace
