#include "Tarnwick/Interface/List/RowMetrics.h"

#include "Tarnwick/Interface/List/CountFigures.h"
#include "Tarnwick/Interface/List/HeadingPainter.h"
#include "Tarnwick/Interface/List/RowGeometry.h"

#include <algorithm>
#include <cmath>

namespace Tarnwick {
namespace {

constexpr int wideBadgeGap = 4;
constexpr int narrowBadgeGap = 2;
constexpr int narrowTitle = 150;
constexpr int deepest = 3;

void setBadges(RowMetrics& metrics, int gap, CountWidths counts)
{
    const double least = CountFigures::widthInEm(QStringLiteral("0/0"));
    const auto badge = [&](double em) {
        const double count = std::max(em, least) * metrics.count.pixelSize;
        return metrics.icon + gap + static_cast<int>(std::ceil(count));
    };
    metrics.badgeGap = gap;
    metrics.reviewWidth = badge(counts.reviews);
    metrics.checkWidth = badge(counts.checks);
}

}  // namespace

RowMetrics rowMetrics(int width, CountWidths counts)
{
    RowMetrics metrics;
    metrics.title = appearance().line(TextStyle::body, TextWeight::medium);
    metrics.dimmedTitle = appearance().line(TextStyle::body, TextWeight::regular);
    metrics.caption = appearance().line(TextStyle::caption, TextWeight::regular);
    metrics.count = appearance().line(TextStyle::caption, TextWeight::medium);
    metrics.width = width;
    metrics.heading = headingHeight();
    metrics.icon = appearance().scaled(16);
    // An odd size at text scale 1, so it has a rule of its own: 11, 14, 16.
    metrics.arrow = static_cast<int>(std::ceil(11 * appearance().textScale() - 0.5));
    // Even, like the icon that it is centered on: 6, 8, 10.
    metrics.dot = 2 * static_cast<int>(std::round(3 * appearance().textScale()));
    metrics.dotHelpWidth = appearance().scaled(24);
    metrics.editorButton = QSize(appearance().scaled(28), appearance().scaled(20));
    metrics.editorIcon = appearance().scaled(14);
    setBadges(metrics, wideBadgeGap, counts);
    if (titleWidth(metrics, deepest) < narrowTitle) {
        setBadges(metrics, narrowBadgeGap, counts);
    }
    return metrics;
}

}  // namespace Tarnwick
