#include "Tarnwick/Interface/List/RowTexts.h"

#include <QFontMetricsF>

#include <cmath>

namespace Tarnwick::RowTexts {
namespace {

/// As a share of the font's size: 5 pixels at text scale 1.
constexpr double gapInEm = 0.44;

}  // namespace

QString elided(const QString& text, const LineStyle& style, double width)
{
    return QFontMetricsF(style.font).elidedText(text, Qt::ElideRight, width);
}

DetailsLayout details(
    const PullRequestKit::PullRequest& pullRequest,
    PullRequestKit::Date now,
    const RowMetrics& metrics,
    double width)
{
    const QFontMetricsF font(metrics.caption.font);
    const TextMeasure measure{
        [&font](const QString& text) { return font.horizontalAdvance(text); },
        [&font](const QString& text, Qt::TextElideMode mode, double room) {
            return font.elidedText(text, mode, room);
        }};
    const double gap = std::round(gapInEm * metrics.caption.pixelSize);
    return layOutDetails(
        RowWording::details(pullRequest, now, QTimeZone::systemTimeZone()), width, gap, measure);
}

}  // namespace Tarnwick::RowTexts
