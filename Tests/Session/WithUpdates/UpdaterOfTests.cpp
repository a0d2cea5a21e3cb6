#include "TarnwickDirect/SoftwareUpdate/DesktopUpdater.h"
#include "TarnwickDirect/SoftwareUpdate/ProgramUpdater.h"

#include <QFile>

namespace TarnwickDirect {
namespace {

/// The certificate of the test's server; a text that is none where the test names no file, so that
/// never anything else is trusted.
QByteArray authorityOfTest()
{
    QFile file(qEnvironmentVariable("TARNWICK_UPDATE_AUTHORITY"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
}

}  // namespace

MakeUpdater programUpdater()
{
    auto source = updateSource(
        qgetenv("TARNWICK_UPDATE_FEED").toStdString(),
        qgetenv("TARNWICK_UPDATE_KEY").toStdString());
    if (!source) {
        return {};
    }
    source->authorities = authorityOfTest();
    return desktopUpdaterFrom(*source);
}

}  // namespace TarnwickDirect
