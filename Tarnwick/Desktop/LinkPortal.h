#pragma once

#include "PullRequestKit/Url.h"

#include <string>

namespace Tarnwick {

/// Opens a URL through the desktop portal, for sandboxes and slim desktops. Does not wait; does
/// nothing without a session bus or a portal. Main thread only.
void openThroughPortal(const PullRequestKit::Url& url, const std::string& activationToken);

}  // namespace Tarnwick
