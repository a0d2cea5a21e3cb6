#include "TarnwickDirect/SoftwareUpdate/UpdateModule.h"

#include "TarnwickDirect/SoftwareUpdate/DesktopUpdater.h"

using namespace TarnwickDirect;

extern "C" Q_DECL_EXPORT const char* tarnwickUpdaterVersion()
{
    return TARNWICK_VERSION;
}

/// The feed and the key are fixed at build time; a running program cannot change them.
extern "C" Q_DECL_EXPORT UpdaterController* tarnwickUpdater(
    const ModuleHost& host, UpdaterDelegate& delegate)
{
    const auto source = updateSource(TARNWICK_UPDATE_FEED, TARNWICK_UPDATE_KEY);
    return source ? makeDesktopUpdater(*source, host, delegate) : nullptr;
}
