#pragma once

#include "Tarnwick/Model/ReadAhead.h"

#include <future>
#include <memory>

namespace TarnwickDirect {

/// What takes long and needs no application yet, under way on other threads while the application
/// is made: reading what the last run left, and the list of the fonts that are installed. To be
/// made first; destruction waits for both.
class HeadStart {
public:
    HeadStart();

    const std::shared_ptr<Tarnwick::ReadAhead>& readAhead() const { return _readAhead; }

    /// To be called before anything asks for a font. Blocks until fonts are known.
    void waitForFonts();

private:
    std::shared_ptr<Tarnwick::ReadAhead> _readAhead;
    std::future<void> _fonts;
};

}  // namespace TarnwickDirect
