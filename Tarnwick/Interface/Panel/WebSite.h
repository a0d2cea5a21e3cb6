#pragma once

#include "PullRequestKit/Url.h"

#include <QString>

namespace Tarnwick {

/// The product's web site, which the build names.
PullRequestKit::Url webSite();

/// Such as "Open tarnwick.dev".
QString webSiteHelpText();

}  // namespace Tarnwick
