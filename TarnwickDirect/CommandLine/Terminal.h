#pragma once

#include <string>
#include <string_view>

namespace TarnwickDirect {

/// The capabilities of an output stream.
struct TerminalTraits {
    bool isTerminal = false;
    bool canErase = false;   ///< A terminal with control sequences.
    bool hasColors = false;  ///< `canErase`, and `NO_COLOR` is not set.
    int columns = 0;         ///< The width; 0 if unlimited.
};

/// Depends on the descriptor and the environment.
TerminalTraits terminalTraits(int descriptor);

enum class Style {
    plain,
    strong,
    faint,
    red,
    green,
    yellow,
    purple,
};

/// Adds the style's escape sequences, except for `plain`, empty text or without colors.
std::string styled(std::string_view text, Style style, bool hasColors);

/// One line that is safe for a terminal: control and direction characters become "�". Requires:
/// UTF-8.
std::string singleLine(std::string_view text);

/// Like `singleLine`, but keeps line breaks; tabs become spaces. Requires: UTF-8.
std::string message(std::string_view text);

/// The maximum of columns that terminals use for the text. Requires: UTF-8.
int displayWidth(std::string_view text);

/// The text, cut between grapheme clusters and ended with "…" if too wide. Requires: UTF-8.
std::string elided(std::string_view text, int columns);

}  // namespace TarnwickDirect
