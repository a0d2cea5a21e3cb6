#pragma once

#include "PullRequestKit/PullRequest.h"
#include "Tarnwick/Interface/Style/Palette.h"

#include <QColor>

namespace Tarnwick {

/// The colors of a pull request's state. Green, red, purple and draft grey are the same in light
/// and dark. Safe from any thread.
namespace RowColors {

inline const QColor green = QColor::fromRgbF(0.102F, 0.498F, 0.216F);
inline const QColor red = QColor::fromRgbF(0.812F, 0.133F, 0.18F);
inline const QColor purple = QColor::fromRgbF(0.51F, 0.314F, 0.875F);
inline const QColor draftGrey = QColor::fromRgbF(0.396F, 0.427F, 0.463F);

QColor stateColor(const PullRequestKit::PullRequest& pullRequest);

QColor reviewColor(PullRequestKit::ReviewState state, const Palette& palette);

/// A failure shows even while other checks are running.
QColor checkColor(const PullRequestKit::ProgressCount& checks, const Palette& palette);

/// Whether small text in this color is hard to read on a dark surface. With high contrast it is
/// then white on a plate of this color.
bool wantsPlate(const QColor& color);

}  // namespace RowColors

}  // namespace Tarnwick
