#pragma once

namespace TarnwickDirect {

/// Whether there is a display to put windows on. Qt ends the process when it finds none. To be
/// asked before there is a `QApplication`; blocks as long as the display takes to answer.
bool hasDisplay();

}  // namespace TarnwickDirect
