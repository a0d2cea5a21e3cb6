#pragma once

namespace Tarnwick {

class Appearance;

/// Gives what Qt draws itself, such as help texts and its own dialogs, the colours of the
/// appearance. Main thread only.
void applyToApplication(const Appearance& appearance);

}  // namespace Tarnwick
