#pragma once

#include "TarnwickDirect/CommandLine/Terminal.h"

#include <string_view>

namespace TarnwickDirect {

/// A temporary progress line on standard error, if that is a terminal that can erase.
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
