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
    false, u"northmere/"_s, u"quay"_s, u"#482"_s, u"mira-k"_s, u"3h"_s};

DetailsLayout at(double width)
{
    return layOutDetails(details, width, gap, tens);
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
        layOutDetails(draft, 1000, gap, tens).text(),
        u"Draft · northmere/quay #482 · mira-k · 3h"_s);
    EXPECT_EQ(layOutDetails(draft, 300, gap, tens).text(), u"Draft · quay #482 · mira-k · 3h"_s);
}

TEST(DetailsLayout, aPullRequestWithoutAuthorHasNoEmptyPlace)
{
    RowWording::Details anonymous = details;
    anonymous.author.clear();
    EXPECT_EQ(layOutDetails(anonymous, 1000, gap, tens).text(), u"northmere/quay #482 · 3h"_s);
}

}  // namespace
