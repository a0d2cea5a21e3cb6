#pragma once

#include "Tarnwick/Persistence/SnapshotReader.h"

#include <future>
#include <memory>

namespace TarnwickDirect {

/// What takes long and needs no application yet, under way on other threads while the application
/// is made: reading the last snapshot, and the list of the fonts that are installed. To be made
/// first; destruction waits for both.
class HeadStart {
public:
    HeadStart();

    const std::shared_ptr<Tarnwick::SnapshotReader>& snapshot() const { return _snapshot; }

    /// To be called before anything asks for a font. Blocks until fonts are known.
    void waitForFonts();

private:
    std::shared_ptr<Tarnwick::SnapshotReader> _snapshot;
    std::future<void> _fonts;
};

}  // namespace TarnwickDirect
