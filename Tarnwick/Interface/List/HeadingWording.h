#pragma once

#include "Tarnwick/Interface/List/GroupHeading.h"

#include <QString>

namespace Tarnwick {

/// The texts of a group's heading. Safe from any thread.
namespace HeadingWording {

/// Such as "Waiting on You".
QString title(PullRequestKit::Whose whose);

/// The count behind the title; empty if all rows are dimmed.
QString count(const GroupHeading& heading);

/// For screen readers: "Waiting on You, 3 of 5 pull requests", or "Ready to Merge, 1 pull request"
/// if the heading applies to all of them.
QString sentence(const GroupHeading& heading);

}  // namespace HeadingWording

}  // namespace Tarnwick
