#pragma once

namespace TarnwickDirect {

/// What the program needs before anything of it is on screen.
namespace TarnwickApplication {

/// Makes the bundled fonts known. To be called once, before the first window and the first
/// notification. Main thread only.
void initialize();

/// What lists of windows show. It takes several milliseconds to draw.
void setWindowIcon();

}  // namespace TarnwickApplication

}  // namespace TarnwickDirect
