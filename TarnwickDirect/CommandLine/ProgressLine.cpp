#include "TarnwickDirect/CommandLine/ProgressLine.h"

#include "TarnwickDirect/CommandLine/Terminal.h"

#include <iostream>

#include <unistd.h>

namespace TarnwickDirect {
namespace {

constexpr std::string_view eraseLine = "\r\x1b[K";

}  // namespace

ProgressLine::ProgressLine()
    : _terminal(terminalTraits(STDERR_FILENO))
{}

void ProgressLine::show(std::string_view text)
{
    if (_terminal.canErase) {
        // A full line may wrap, and then could not be erased completely.
        std::cerr << eraseLine << elided(text, _terminal.columns - 1) << std::flush;
        _isShown = true;
    }
}

void ProgressLine::clear()
{
    if (_isShown) {
        std::cerr << eraseLine << std::flush;
        _isShown = false;
    }
}

}  // namespace TarnwickDirect
