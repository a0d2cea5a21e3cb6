#pragma once

namespace TarnwickDirect {

/// Set-up before the first window.
namespace TarnwickApplication {

/// Registers the bundled fonts. Call once, before the first window and the first notification. Main
/// thread only.
void initialize();

/// The icon in window lists. Takes several milliseconds.
void setWindowIcon();

}  // namespace TarnwickApplication

}  // namespace TarnwickDirect
