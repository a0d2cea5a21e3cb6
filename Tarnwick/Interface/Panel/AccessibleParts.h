#pragma once

namespace Tarnwick {

/// Gives the panel's parts accessible roles: cards are dialogs, info bars are alerts or
/// notifications, a card's bar is a progress bar, and toggles report whether they are open. Further
/// calls do nothing. Main thread only.
void installAccessibleParts();

}  // namespace Tarnwick
