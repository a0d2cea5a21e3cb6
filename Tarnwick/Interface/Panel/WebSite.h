#pragma once

#include "PullRequestKit/Url.h"

#include <QString>

namespace Tarnwick {

/// The product's web site, set by the build. Safe from any thread.
PullRequestKit::Url webSite();

/// Such as "Open tarnwick.dev".
QString webSiteToolTip();

}  // namespace Tarnwick
