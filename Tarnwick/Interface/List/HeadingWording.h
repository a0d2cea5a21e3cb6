#pragma once

#include "Tarnwick/Interface/List/GroupHeading.h"

#include <QString>

namespace Tarnwick {

/// The words of a group's heading. Pure functions, safe from any thread.
namespace HeadingWording {

/// Such as "Waiting on You".
QString title(PullRequestKit::Whose whose);

/// The figure behind the title; empty where only dimmed rows stand below it.
QString count(const GroupHeading& heading);

/// As a screen reader says it: "Waiting on You, 3 of 5 pull requests", or "Ready to Merge, 1 pull
/// request" where all below it are what it says.
QString sentence(const GroupHeading& heading);

}  // namespace HeadingWording

}  // namespace Tarnwick
