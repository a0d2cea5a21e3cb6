#include "Tarnwick/Interface/List/DetailsLayout.h"

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using namespace Tarnwick;

constexpr double gap = 5;

/// But for the characters around a name that keep its direction from turning others.
qsizetype lettersIn(const QString& text)
{
    return text.size() - text.count(QChar(0x2068)) - text.count(QChar(0x2069));
}

/// Every character is 10 wide.
const TextMeasure tens{
    [](const QString& text) { return 10.0 * static_cast<double>(lettersIn(text)); },
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

/// Every character of a strong reason is 20 wide.
const LineMeasure measure{
    tens,
    {[](const QString& text) { return 2 * tens.width(text); },
     [](const QString& text, Qt::TextElideMode mode, double width) {
         return tens.elided(text, mode, width / 2);
     }}};

const RowWording::Details details{
    false, {}, u"northmere/"_s, u"quay"_s, u"#482"_s, u"mira-k"_s, u"3h"_s};

DetailsLayout at(double width)
{
    return layOutDetails(details, {.width = width, .gap = gap}, measure);
}

QString textOf(const DetailsLayout& layout)
{
    QStringList texts;
    for (const DetailsLayout::Piece& piece : layout.pieces) {
        texts.append(piece.text);
    }
    return texts.join(u' ');
}

TEST(DetailsLayout, piecesStandOneGapApart)
{
    const DetailsLayout layout = at(1000);
    ASSERT_EQ(layout.pieces.size(), 6U);
    EXPECT_EQ(textOf(layout), u"northmere/quay #482 · mira-k · 3h"_s);
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
    EXPECT_EQ(textOf(at(305)), u"northmere/quay #482 · mira-k · 3h"_s);
    EXPECT_EQ(textOf(at(304)), u"quay #482 · mira-k · 3h"_s);
    EXPECT_TRUE(at(304).isElided);
}

TEST(DetailsLayout, thenTheRepositoryIsElidedInItsMiddle)
{
    EXPECT_EQ(textOf(at(205)), u"quay #482 · mira-k · 3h"_s);
    EXPECT_EQ(textOf(at(200)), u"q…y #482 · mira-k · 3h"_s);
}

TEST(DetailsLayout, thenTheAuthorAndNeverNumberAndAge)
{
    EXPECT_EQ(textOf(at(155)), u"… #482 · mir… · 3h"_s);
    EXPECT_EQ(textOf(at(20)), u"… #482 · … · 3h"_s);
}

TEST(DetailsLayout, draftsBeginWithTheWord)
{
    RowWording::Details draft = details;
    draft.isDraft = true;
    EXPECT_EQ(
        textOf(layOutDetails(draft, {.width = 1000, .gap = gap}, measure)),
        u"Draft · northmere/quay #482 · mira-k · 3h"_s);
    EXPECT_EQ(
        textOf(layOutDetails(draft, {.width = 300, .gap = gap}, measure)),
        u"Draft · quay #482 · mira-k · 3h"_s);
}

TEST(DetailsLayout, aPullRequestWithoutAuthorHasNoEmptyPlace)
{
    RowWording::Details anonymous = details;
    anonymous.author.clear();
    EXPECT_EQ(
        textOf(layOutDetails(anonymous, {.width = 1000, .gap = gap}, measure)),
        u"northmere/quay #482 · 3h"_s);
}

DetailsLayout hiddenAt(double width, double scale = 1)
{
    RowWording::Details hidden = details;
    hidden.isDraft = true;
    hidden.reason = {.words = u"Hidden by Status"_s};
    hidden.repository = u"tidewatch"_s;
    return layOutDetails(hidden, {width, gap, scale}, measure);
}

TEST(DetailsLayout, aReasonStandsBeforeTheRepository)
{
    EXPECT_EQ(
        textOf(hiddenAt(1000)),
        u"Draft · Hidden by Status · northmere/tidewatch #482 · mira-k · 3h"_s);
    EXPECT_FALSE(hiddenAt(1000).isElided);
}

TEST(DetailsLayout, besideAReasonRepositoryAndAuthorKeepSomeLetters)
{
    EXPECT_EQ(textOf(hiddenAt(505)), u"Draft · Hidden by Status · tidewatch #482 · mira-k · 3h"_s);
    EXPECT_EQ(textOf(hiddenAt(460)), u"Draft · Hidden by Status · ti…h #482 · mira-k · 3h"_s);
    EXPECT_EQ(textOf(hiddenAt(440)), u"Draft · Hidden by Status · ti…h #482 · mir… · 3h"_s);
    EXPECT_EQ(textOf(hiddenAt(430)), u"Draft · Hidden by Status · ti…h #482 · mi… · 3h"_s);
    EXPECT_EQ(textOf(hiddenAt(440, 2)), u"Draft · Hidden by Status · tidewatch #482 · 3h"_s);
}

TEST(DetailsLayout, thenTheAuthorGoesAndTheRepositoryAndAtLastTheLineEnds)
{
    EXPECT_EQ(textOf(hiddenAt(380)), u"Draft · Hidden by Status · ti…h #482 · 3h"_s);
    EXPECT_EQ(textOf(hiddenAt(350)), u"Draft · Hidden by Status · … #482 · 3h"_s);
    EXPECT_EQ(textOf(hiddenAt(325)), u"Draft · Hidden by Status · … #482…"_s);
    EXPECT_EQ(textOf(hiddenAt(140)), u"Draft · Hidden…"_s);
    for (int width = 20; width < 600; ++width) {
        const DetailsLayout layout = hiddenAt(width);
        EXPECT_LE(layout.pieces.back().left + tens.width(layout.pieces.back().text), width);
        EXPECT_EQ(layout.isElided, textOf(layout) != textOf(hiddenAt(1000)));
    }
}

/// Without the characters around names.
QString lettersOf(const DetailsLayout& layout)
{
    return textOf(layout).remove(QChar(0x2068)).remove(QChar(0x2069));
}

QString waitingAt(double width, bool isStrong = false)
{
    RowWording::Details waiting = details;
    waiting.reason = {u"Waiting for "_s, {u"mara-lind"_s, u"noa-b"_s, u"platform"_s}, isStrong};
    waiting.repository = u"tidewatch"_s;
    return lettersOf(layOutDetails(waiting, {width, gap}, measure));
}

TEST(DetailsLayout, namesAreIsolated)
{
    RowWording::Details waiting = details;
    waiting.reason = {.words = u"Waiting for "_s, .names = {u"mara"_s, u"noa-b"_s}};
    const DetailsLayout layout = layOutDetails(waiting, {.width = 1000, .gap = gap}, measure);
    EXPECT_EQ(layout.pieces[0].text, u"Waiting for \u2068mara\u2069, \u2068noa-b\u2069"_s);
    EXPECT_FALSE(layout.pieces[0].isStrong);
}

TEST(DetailsLayout, afterTheOwnerTheFurtherNamesOfTheReasonBecomeTheirNumber)
{
    EXPECT_EQ(
        waitingAt(755),
        u"Waiting for mara-lind, noa-b, platform · northmere/tidewatch #482 · mira-k · 3h"_s);
    EXPECT_EQ(
        waitingAt(754), u"Waiting for mara-lind, noa-b, platform · tidewatch #482 · mira-k · 3h"_s);
    EXPECT_EQ(
        waitingAt(655), u"Waiting for mara-lind, noa-b, platform · tidewatch #482 · mira-k · 3h"_s);
    EXPECT_EQ(waitingAt(654), u"Waiting for mara-lind, +2 · tidewatch #482 · mira-k · 3h"_s);
}

TEST(DetailsLayout, afterRepositoryAndAuthorTheFirstNameIsElidedAtItsEnd)
{
    EXPECT_EQ(waitingAt(525), u"Waiting for mara-lind, +2 · tidewatch #482 · mira-k · 3h"_s);
    EXPECT_EQ(waitingAt(475), u"Waiting for mara-lind, +2 · ti…h #482 · mira-k · 3h"_s);
    EXPECT_EQ(waitingAt(445), u"Waiting for mara-lind, +2 · ti…h #482 · mi… · 3h"_s);
    EXPECT_EQ(waitingAt(440), u"Waiting for mara-li…, +2 · ti…h #482 · mi… · 3h"_s);
    EXPECT_EQ(waitingAt(365), u"Waiting for …, +2 · ti…h #482 · mi… · 3h"_s);
}

TEST(DetailsLayout, thenTheAuthorGoesAndTheRepositoryAndTheNameHasTheirRoom)
{
    EXPECT_EQ(waitingAt(360), u"Waiting for mara…, +2 · ti…h #482 · 3h"_s);
    EXPECT_EQ(waitingAt(315), u"Waiting for …, +2 · ti…h #482 · 3h"_s);
    EXPECT_EQ(waitingAt(310), u"Waiting for ma…, +2 · … #482 · 3h"_s);
    EXPECT_EQ(waitingAt(285), u"Waiting for …, +2 · … #482 · 3h"_s);
    EXPECT_EQ(waitingAt(200), u"Waiting for …, +2 · …"_s);
}

TEST(DetailsLayout, aStrongReasonIsMeasuredAsItIsPainted)
{
    RowWording::Details strong = details;
    strong.reason = {.words = u"Conflicts"_s, .names = {}, .isStrong = true};
    const DetailsLayout layout = layOutDetails(strong, {.width = 1000, .gap = gap}, measure);
    EXPECT_TRUE(layout.pieces[0].isStrong);
    EXPECT_EQ(layout.pieces[1].left, 185);
    EXPECT_FALSE(layout.pieces[2].isStrong);
    for (int width = 40; width < 1100; ++width) {
        const DetailsLayout cut =
            layOutDetails(strong, {.width = 1.0 * width, .gap = gap}, measure);
        const DetailsLayout::Piece& last = cut.pieces.back();
        const TextMeasure& ofLast = last.isStrong ? measure.strong : measure.plain;
        EXPECT_LE(last.left + ofLast.width(last.text), width) << textOf(cut).toStdString();
    }
}

TEST(DetailsLayout, marksWhatIsToBeFound)
{
    const DetailsLayout layout = layOutDetails(
        details, {.width = 1000, .gap = gap}, measure, {u"quay"_s, u"nort"_s, u"#48"_s, u"k"_s});
    EXPECT_EQ(layout.pieces[0].marks, (std::vector<TextRange>{{0, 4}, {10, 14}}));
    EXPECT_EQ(layout.pieces[1].marks, (std::vector<TextRange>{{0, 3}}));
    EXPECT_EQ(layout.pieces[3].marks, (std::vector<TextRange>{{5, 6}}));
    EXPECT_TRUE(layout.pieces[5].marks.empty()) << "an age is not looked for";
}

TEST(DetailsLayout, anOwnerThatMatchesIsElidedInsteadOfLeftOut)
{
    const QStringList words{u"north"_s};
    const DetailsLayout layout = layOutDetails(details, {.width = 275, .gap = gap}, measure, words);
    EXPECT_EQ(textOf(layout), u"north…/quay #482 · mira-k · 3h"_s);
    EXPECT_EQ(layout.pieces[0].marks, (std::vector<TextRange>{{0, 5}}));
    EXPECT_TRUE(layout.isElided);
    EXPECT_EQ(
        textOf(layOutDetails(details, {.width = 225, .gap = gap}, measure, words)),
        u"…/quay #482 · mira-k · 3h"_s);
    EXPECT_EQ(
        textOf(layOutDetails(details, {.width = 225, .gap = gap}, measure, {u"quay"_s})),
        u"quay #482 · mira-k · 3h"_s);
}

}  // namespace
