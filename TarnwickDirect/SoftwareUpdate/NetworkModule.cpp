#include "TarnwickDirect/SoftwareUpdate/NetworkModule.h"

#include "TarnwickDirect/SoftwareUpdate/UpdateError.h"

#include <QDir>
#include <QLibrary>

namespace TarnwickDirect {

QString networkModulePath(const QString& programFolder)
{
    return QDir::cleanPath(
        programFolder + QStringLiteral("/../lib/tarnwick/modules/tarnwick-https.so"));
}

std::unique_ptr<HttpsNetwork> networkFromModule(const QString& path)
{
    using Make = HttpsNetwork* (*)();
    const auto make = reinterpret_cast<Make>(QLibrary::resolve(path, "tarnwickHttpsNetwork"));
    if (make == nullptr) {
        throw UpdateError(
            QStringLiteral("Updates cannot be fetched because \"%1\" cannot be loaded.").arg(path));
    }
    return std::unique_ptr<HttpsNetwork>(make());
}

}  // namespace TarnwickDirect
