#pragma once

namespace Tarnwick {

class Appearance;

/// Gives what Qt draws itself, such as help texts and its own dialogs, one style on every desktop.
/// Best before the first widget, since each is polished anew. Main thread only.
void setApplicationStyle(const Appearance& appearance);

/// Gives what Qt draws itself, such as help texts and its own dialogs, the colours of the
/// appearance. Main thread only.
void applyToApplication(const Appearance& appearance);

}  // namespace Tarnwick
