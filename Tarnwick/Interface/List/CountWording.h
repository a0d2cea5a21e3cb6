#pragma once

#include "PullRequestKit/PullRequestDetails.h"

#include <QString>
#include <QStringList>

namespace Tarnwick {

/// What the counts of a row are made of, one fact a line. Names are other people's texts: they come
/// out without control and direction characters, and none turns the direction of what follows it.
/// Pure functions, safe from any thread.
namespace CountWording {

/// "Changes requested: …", "Approved: …" and so on: who has reviewed and who is asked to. Empty
/// where there is nobody.
QStringList reviewLines(const PullRequestKit::PullRequestDetails& details);

/// "1 of 4 passed", "Failed: …", "Running: …". Empty without checks.
QStringList checkLines(
    const PullRequestKit::ProgressCount& checks, const PullRequestKit::PullRequestDetails& details);

}  // namespace CountWording

}  // namespace Tarnwick
