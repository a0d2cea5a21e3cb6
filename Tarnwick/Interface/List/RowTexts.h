#pragma once

#include "Tarnwick/Interface/List/DetailsLayout.h"
#include "Tarnwick/Interface/List/RowContent.h"
#include "Tarnwick/Interface/List/RowMetrics.h"

namespace Tarnwick {

/// A row's small texts cut to the room they have. Main thread only.
namespace RowTexts {

QString elided(const QString& text, const LineStyle& style, double width);

/// The pieces of the row's line of details, in the user's time zone.
RowWording::Details details(const RowContent& content, PullRequestKit::Date now);

/// What has changed since the user last opened it, in the user's time zone. Requires: the row has
/// changed.
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
