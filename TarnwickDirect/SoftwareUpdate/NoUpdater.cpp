#include "TarnwickDirect/SoftwareUpdate/ProgramUpdater.h"

namespace TarnwickDirect {

MakeUpdater programUpdater()
{
    return {};
}

}  // namespace TarnwickDirect
