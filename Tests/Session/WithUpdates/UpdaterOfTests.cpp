#include "TarnwickDirect/SoftwareUpdate/DesktopUpdater.h"
#include "TarnwickDirect/SoftwareUpdate/ProgramUpdater.h"

#include <QSslCertificate>

namespace TarnwickDirect {
namespace {

/// Trusts the authority of the test's server alone.
QSslConfiguration trustOfTest()
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates(
        QSslCertificate::fromPath(qEnvironmentVariable("TARNWICK_UPDATE_AUTHORITY")));
    return configuration;
}

}  // namespace

MakeUpdater programUpdater()
{
    const auto source = updateSource(
        qgetenv("TARNWICK_UPDATE_FEED").toStdString(),
        qgetenv("TARNWICK_UPDATE_KEY").toStdString());
    return source ? desktopUpdaterFrom(*source, trustOfTest) : MakeUpdater{};
}

}  // namespace TarnwickDirect
