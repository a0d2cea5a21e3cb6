#pragma once

#include "TarnwickDirect/CommandLine/Terminal.h"

#include <string_view>

namespace TarnwickDirect {

/// A temporary progress line on standard error. Shows nothing if that is not a terminal or cannot
/// erase.
class ProgressLine {
public:
    ProgressLine();
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    ~ProgressLine() { clear(); }

    void show(std::string_view text);
    void clear();

private:
    TerminalTraits _terminal;
    bool _isShown = false;
};

}  // namespace TarnwickDirect
