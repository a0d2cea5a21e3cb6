#pragma once

#include "PullRequestKit/PullRequestDetails.h"

#include <QString>
#include <QStringList>

namespace Tarnwick {

/// Describes what the counts of a row consist of, one fact per line. Untrusted names cannot hide
/// text or change its direction. Safe from any thread.
namespace CountWording {

/// "Changes requested: …", "Approved: …" and so on. Empty without reviewers.
QStringList reviewLines(const PullRequestKit::PullRequestDetails& details);

/// "1 of 4 passed", "Failed: …", "Running: …". Empty without checks.
QStringList checkLines(
    const PullRequestKit::ProgressCount& checks, const PullRequestKit::PullRequestDetails& details);

}  // namespace CountWording

}  // namespace Tarnwick
