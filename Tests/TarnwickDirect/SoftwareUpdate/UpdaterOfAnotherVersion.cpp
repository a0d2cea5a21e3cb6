#include <QtGlobal>

extern "C" Q_DECL_EXPORT const char* tarnwickUpdaterVersion()
{
    return "0.0.1";
}

/// Whoever calls it has not looked at the version.
extern "C" Q_DECL_EXPORT void* tarnwickUpdater()
{
    qFatal("The module of another version was asked for an updater.");
}
