#include "TarnwickDirect/SoftwareUpdate/DesktopUpdater.h"

#include <QFile>

using namespace TarnwickDirect;

namespace {

/// The certificate of the test's server; a text that is none where the test names no file, so that
/// never anything else is trusted.
QByteArray authorityOfTest()
{
    QFile file(qEnvironmentVariable("TARNWICK_UPDATE_AUTHORITY"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
}

}  // namespace

extern "C" Q_DECL_EXPORT const char* tarnwickUpdaterVersion()
{
    return TARNWICK_VERSION;
}

extern "C" Q_DECL_EXPORT UpdaterController* tarnwickUpdater(
    const ModuleHost& host, UpdaterDelegate& delegate)
{
    auto source = updateSource(
        qgetenv("TARNWICK_UPDATE_FEED").toStdString(),
        qgetenv("TARNWICK_UPDATE_KEY").toStdString());
    if (!source) {
        return nullptr;
    }
    source->authorities = authorityOfTest();
    return makeDesktopUpdater(*source, host, delegate);
}
