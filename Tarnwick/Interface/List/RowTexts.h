#pragma once

#include "Tarnwick/Interface/List/DetailsLayout.h"
#include "Tarnwick/Interface/List/RowContent.h"
#include "Tarnwick/Interface/List/RowMetrics.h"

namespace Tarnwick {

/// The small texts of a row. Main thread only.
namespace RowTexts {

QString elided(const QString& text, const LineStyle& style, double width);

/// The pieces of the line of details, in the local time zone.
RowWording::Details details(const RowContent& content, PullRequestKit::Date now);

/// The changes since the last visit, in the local time zone. Requires: `content.hasChanged()`.
QString sinceSentence(const RowContent& content, PullRequestKit::Date now);

/// `findWords` are folded.
DetailsLayout detailsLayout(
    const RowContent& content,
    PullRequestKit::Date now,
    const RowMetrics& metrics,
    double width,
    const QStringList& findWords = {});

}  // namespace RowTexts

}  // namespace Tarnwick
