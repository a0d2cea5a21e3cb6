#pragma once

namespace Tarnwick {

/// Gives the parts of the panel that are drawn here the roles that assistive technologies know:
/// cards are dialogs, info bars are alerts or notifications, and the bar of a card is a progress
/// bar; buttons that open and shut something tell which of both it is. Main thread only; calling it
/// again changes nothing.
void installAccessibleParts();

}  // namespace Tarnwick
