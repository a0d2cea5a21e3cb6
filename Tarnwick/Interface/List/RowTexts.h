#pragma once

#include "Tarnwick/Interface/List/DetailsLayout.h"
#include "Tarnwick/Interface/List/RowMetrics.h"

namespace Tarnwick {

/// A row's small texts cut to the room they have. Main thread only.
namespace RowTexts {

QString elided(const QString& text, const LineStyle& style, double width);

DetailsLayout details(
    const PullRequestKit::PullRequest& pullRequest,
    PullRequestKit::Date now,
    const RowMetrics& metrics,
    double width);

}  // namespace RowTexts

}  // namespace Tarnwick
