#include "Tarnwick/Interface/List/PullRequestRowView.h"

#include "Tarnwick/Interface/Controls/Fade.h"
#include "Tarnwick/Interface/List/CountFigures.h"
#include "Tarnwick/Interface/List/FindPlates.h"
#include "Tarnwick/Interface/List/RowColors.h"
#include "Tarnwick/Interface/List/RowTexts.h"
#include "Tarnwick/Interface/Style/Painting.h"
#include "Tarnwick/Interface/Style/ResourceIcon.h"
#include "Tarnwick/Interface/Style/SystemSymbol.h"

namespace Tarnwick {
namespace {

constexpr double fillRadius = 8;
constexpr double ringWidth = 2;
constexpr double barRadius = 1.5;
constexpr double buttonRadius = 6;
constexpr double plateRadius = 4;
constexpr int plateBefore = 2;
constexpr int plateAfter = 3;

void drawIcon(QPainter& painter, const char* name, const QRect& place, const QColor& color)
{
    ResourceIcon{QString::fromLatin1(name)}.draw(painter, place, color);
}

}  // namespace

PullRequestRowView::PullRequestRowView(
    QPainter& painter,
    const RowMetrics& metrics,
    PullRequestKit::Date now,
    const QStringList& findWords)
    : _painter(painter)
    , _metrics(metrics)
    , _palette(appearance().palette())
    , _now(now)
    , _findWords(findWords)
{}

void PullRequestRowView::paint(
    const RowContent& content,
    const RowGeometry& geometry,
    const TitleLayout& title,
    const RowState& situation)
{
    paintFill(geometry, situation);
    paintStart(content, geometry);
    paintDot(content, geometry);
    const QColor& seen = content.isVisited() ? _palette.textSecondary : _palette.textPrimary;
    title.draw(_painter, geometry.title.topLeft(), unlessDimmed(content, seen));
    if (!wordsIn(content).isEmpty()) {
        title.drawMarks(
            _painter,
            geometry.title.topLeft(),
            matchesIn(content.title(), wordsIn(content)),
            _palette);
    }
    if (!geometry.warning.isEmpty()) {
        const QString warning =
            RowTexts::elided(content.warning(), _metrics.caption, geometry.warning.width());
        Painting::text(
            _painter,
            geometry.warning,
            warning,
            _metrics.caption,
            unlessDimmed(content, _palette.textWarning));
    }
    paintDetails(
        content, situation.showsEditorButton ? geometry.detailsBesideButton : geometry.details);
    paintBadges(content, geometry);
    if (situation.showsEditorButton) {
        paintEditorButton(geometry, situation);
    }
}

QColor PullRequestRowView::unlessDimmed(const RowContent& content, const QColor& color) const
{
    return content.isDimmed() ? _palette.textTertiary : color;
}

void PullRequestRowView::paintFill(const RowGeometry& geometry, const RowState& situation)
{
    if (situation.hasLineAbove) {
        Painting::hairline(
            _painter,
            geometry.line.left(),
            geometry.line.top(),
            geometry.line.width(),
            _palette.hairline);
    }
    if (situation.isSelected) {
        Painting::fillRounded(_painter, geometry.fill, fillRadius, _palette.surfaceSelected);
    } else if (situation.hover > 0) {
        Painting::fillRounded(
            _painter,
            geometry.fill,
            fillRadius,
            mixed(_palette.surfaceList, _palette.surfaceHover, situation.hover));
    }
    if (situation.hasFocusRing) {
        Painting::strokeInside(_painter, geometry.fill, fillRadius, ringWidth, _palette.accent);
    }
}

void PullRequestRowView::paintStart(const RowContent& content, const RowGeometry& geometry)
{
    if (content.pullRequest().isBlocked() && !content.isDimmed()) {
        Painting::fillRounded(_painter, geometry.blockedBar, barRadius, RowColors::red);
    }
    if (!geometry.arrow.isEmpty()) {
        SystemSymbol{QStringLiteral("arrow.turn.down.right")}.draw(
            _painter, geometry.arrow, _palette.textTertiary);
    }
    ResourceIcon{content.stateIconName()}.draw(
        _painter,
        geometry.stateIcon,
        unlessDimmed(content, RowColors::stateColor(content.pullRequest())));
}

void PullRequestRowView::paintDot(const RowContent& content, const RowGeometry& geometry)
{
    if (content.hasChanged()) {
        Painting::fillRounded(_painter, geometry.dot, geometry.dot.width() / 2.0, _palette.accent);
    }
}

void PullRequestRowView::paintBadges(const RowContent& content, const RowGeometry& geometry)
{
    const PullRequestKit::PullRequest& shown = content.pullRequest();
    if (shown.hasMergeConflict()) {
        drawIcon(_painter, "alert", geometry.conflict, unlessDimmed(content, RowColors::red));
    }
    const QColor review =
        unlessDimmed(content, RowColors::reviewColor(shown.reviewState, _palette));
    drawIcon(_painter, "code-review", geometry.reviewIcon, review);
    paintCount(geometry.reviewCount, content.reviewLabel(), review);

    const QColor check = unlessDimmed(content, RowColors::checkColor(shown.checks, _palette));
    drawIcon(_painter, "checklist", geometry.checkIcon, check);
    paintCount(geometry.checkCount, content.checkLabel(), check);
}

void PullRequestRowView::paintCount(const QRect& place, const QString& label, const QColor& color)
{
    const bool hasPlate =
        appearance().isDark() && appearance().higherContrast() && RowColors::wantsPlate(color);
    if (hasPlate) {
        const double width = CountFigures::widthInEm(label) * _metrics.count.pixelSize;
        const QRectF plate(
            place.left() - plateBefore,
            place.top(),
            plateBefore + width + plateAfter,
            place.height());
        Painting::fillRounded(_painter, plate, plateRadius, color);
    }
    CountFigures::draw(
        _painter, place.topLeft(), label, _metrics.count, hasPlate ? QColor(Qt::white) : color);
}

const QStringList& PullRequestRowView::wordsIn(const RowContent& content) const
{
    static const QStringList none;
    return content.isDimmed() ? none : _findWords;
}

void PullRequestRowView::paintDetails(const RowContent& content, const QRect& place)
{
    const DetailsLayout layout =
        RowTexts::detailsLayout(content, _now, _metrics, place.width(), wordsIn(content));
    for (const DetailsLayout::Piece& piece : layout.pieces) {
        const LineStyle& style = piece.isStrong ? _metrics.count : _metrics.caption;
        const QRectF line(place.left() + piece.left, place.top(), place.width(), place.height());
        const QColor& quiet = piece.isStrong ? _palette.textSecondary : _palette.textTertiary;
        Painting::text(_painter, line, piece.text, style, quiet);
        std::vector<QRectF> letters;
        for (const TextRange& mark : piece.marks) {
            const double start = Painting::width(piece.text.left(mark.start), style);
            const double end = Painting::width(piece.text.left(mark.end), style);
            letters.emplace_back(line.left() + start, line.top(), end - start, line.height());
        }
        paintFindPlates(_painter, letters, _palette, [&] {
            Painting::text(_painter, line, piece.text, style, _palette.textPrimary);
        });
    }
}

void PullRequestRowView::paintEditorButton(const RowGeometry& geometry, const RowState& situation)
{
    const bool isOn = situation.isOnEditorButton;
    Painting::fillRounded(
        _painter,
        geometry.editorButton,
        buttonRadius,
        isOn ? _palette.menuHighlight : _palette.button);
    Painting::strokeInside(_painter, geometry.editorButton, buttonRadius, 1, _palette.buttonLine);
    SystemSymbol{QStringLiteral("tarnwick-editor")}.draw(
        _painter, geometry.editorIcon, isOn ? _palette.textPrimary : _palette.textSecondary);
}

}  // namespace Tarnwick
