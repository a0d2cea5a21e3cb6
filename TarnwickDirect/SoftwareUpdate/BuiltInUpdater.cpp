#include "TarnwickDirect/SoftwareUpdate/DesktopUpdater.h"
#include "TarnwickDirect/SoftwareUpdate/ProgramUpdater.h"

namespace TarnwickDirect {

MakeUpdater programUpdater()
{
    const auto source = updateSource(TARNWICK_UPDATE_FEED, TARNWICK_UPDATE_KEY);
    return source ? desktopUpdaterFrom(*source) : MakeUpdater{};
}

}  // namespace TarnwickDirect
