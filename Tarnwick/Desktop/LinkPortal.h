#pragma once

#include "PullRequestKit/Url.h"

#include <string>

namespace Tarnwick {

/// Asks the desktop portal to open an address, as sandboxes and slim desktops offer it. Does not
/// wait for the answer; without a session bus or a portal nothing happens. Main thread only.
void openThroughPortal(const PullRequestKit::Url& url, const std::string& activationToken);

}  // namespace Tarnwick
