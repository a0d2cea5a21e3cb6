#pragma once

namespace TarnwickDirect {

namespace TarnwickApplication {

/// Registers the fonts. Call once, before windows and notifications. Main thread only.
void initialize();

/// The icon in window lists. Takes several milliseconds.
void setWindowIcon();

}  // namespace TarnwickApplication

}  // namespace TarnwickDirect
