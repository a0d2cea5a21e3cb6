#include "Tarnwick/Interface/List/RowTexts.h"

#include "Tarnwick/Interface/List/SinceWording.h"

#include <QFontMetricsF>

#include <cmath>

namespace Tarnwick::RowTexts {
namespace {

/// As a share of the font's size: 5 pixels at text scale 1.
constexpr double gapInEm = 0.44;
/// Of captions.
constexpr double pixelSizeAtScale1 = 34.0 / 3;

TextMeasure measureOf(const LineStyle& style)
{
    const QFontMetricsF font(style.font);
    return {
        [font](const QString& text) { return font.horizontalAdvance(text); },
        [font](const QString& text, Qt::TextElideMode mode, double room) {
            return font.elidedText(text, mode, room);
        }};
}

}  // namespace

QString elided(const QString& text, const LineStyle& style, double width)
{
    return QFontMetricsF(style.font).elidedText(text, Qt::ElideRight, width);
}

RowWording::Details details(const RowContent& content, PullRequestKit::Date now)
{
    return RowWording::details(
        content.pullRequest(), content.reason(), now, QTimeZone::systemTimeZone());
}

QString sinceSentence(const RowContent& content, PullRequestKit::Date now)
{
    return SinceWording::sentence(content.since(), now, QTimeZone::systemTimeZone());
}

DetailsLayout detailsLayout(
    const RowContent& content,
    PullRequestKit::Date now,
    const RowMetrics& metrics,
    double width,
    const QStringList& findWords)
{
    const LineMeasure measure{measureOf(metrics.caption), measureOf(metrics.count)};
    const double gap = std::round(gapInEm * metrics.caption.pixelSize);
    const double scale = metrics.caption.pixelSize / pixelSizeAtScale1;
    return layOutDetails(details(content, now), {width, gap, scale}, measure, findWords);
}

}  // namespace Tarnwick::RowTexts
