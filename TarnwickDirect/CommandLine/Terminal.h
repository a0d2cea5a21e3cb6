#pragma once

#include <string>
#include <string_view>

namespace TarnwickDirect {

/// What a stream of this process can show.
struct TerminalTraits {
    bool isTerminal = false;
    bool canErase = false;   ///< A terminal that obeys control sequences.
    bool hasColors = false;  ///< One that does, and `NO_COLOR` is not set.
    int columns = 0;         ///< The width; 0 where there is none to keep to.
};

/// Looks at a descriptor and at the environment.
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

/// The text between the sequences that set the style and take it back; just the text for `plain`,
/// empty text and without colors.
std::string styled(std::string_view text, Style style, bool hasColors);

/// The text as one line that cannot steer a terminal: control characters and characters that turn
/// the direction of what follows become "�". Requires: UTF-8.
std::string singleLine(std::string_view text);

/// The same for a message, which keeps its line breaks; a tab becomes a space. Requires: UTF-8.
std::string message(std::string_view text);

/// How many columns of a terminal the text takes at most: where terminals differ, as they do about
/// emoji, the larger number. Requires: UTF-8.
int displayWidth(std::string_view text);

/// The text if it takes at most `columns` columns, else its beginning and "…". It is cut between
/// characters as a reader sees them. Requires: UTF-8.
std::string elided(std::string_view text, int columns);

}  // namespace TarnwickDirect
