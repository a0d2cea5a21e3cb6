#pragma once

#include "TarnwickDirect/CommandLine/Terminal.h"

#include <string_view>

namespace TarnwickDirect {

/// One line on standard error that says what is being waited for and goes again. Nothing is shown
/// where standard error is no terminal or one that cannot erase.
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
