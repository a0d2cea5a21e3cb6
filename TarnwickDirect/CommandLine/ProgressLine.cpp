#include "TarnwickDirect/CommandLine/ProgressLine.h"

#include "TarnwickDirect/CommandLine/Terminal.h"

#include <iostream>

#include <unistd.h>

namespace TarnwickDirect {
namespace {

constexpr std::string_view eraseLine = "\r\x1b[K";

}  // namespace

ProgressLine::ProgressLine()
    : _isTerminal(terminalTraits(STDERR_FILENO).isTerminal)
{}

void ProgressLine::show(std::string_view text)
{
    if (_isTerminal) {
        std::cerr << eraseLine << text << std::flush;
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
