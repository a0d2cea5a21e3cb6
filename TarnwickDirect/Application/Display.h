#pragma once

namespace TarnwickDirect {

/// Whether there is a display. Qt would end the process without one. Call before `QApplication` is
/// created; blocks until the display answers.
bool hasDisplay();

}  // namespace TarnwickDirect
