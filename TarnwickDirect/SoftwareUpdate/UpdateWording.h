#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdateChoice.h"

/// What the user reads of updates. Safe from any thread.
namespace TarnwickDirect::UpdateWording {

/// Why there is no update, as one sentence.
QString noUpdate(const NoUpdate& reason, const UpdateNeeds& needs);

/// Whether the sentence comes under "You're up to date!".
bool isUpToDate(const NoUpdate& reason);

}  // namespace TarnwickDirect::UpdateWording
