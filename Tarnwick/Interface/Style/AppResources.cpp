#include "Tarnwick/Interface/Style/AppResources.h"

#include <QCoreApplication>
#include <QDir>
#include <QResource>

#include <stdexcept>

namespace Tarnwick {
namespace {

const QString root = QStringLiteral(":/tarnwick/");

}  // namespace

const AppResources& AppResources::bundle()
{
    static const AppResources loaded(candidates(QCoreApplication::applicationDirPath()));
    return loaded;
}

AppResources::AppResources(const QStringList& candidates)
{
    for (const QString& candidate : candidates) {
        if (QResource::registerResource(candidate)) {
            return;
        }
    }
    throw std::runtime_error(
        "could not load resource bundle: from "
        + candidates.join(QStringLiteral(" or ")).toStdString());
}

QStringList AppResources::candidates(const QString& programFolder)
{
    const QString name = QStringLiteral("Tarnwick_Tarnwick.bundle");
    return {
        QDir::cleanPath(programFolder + QStringLiteral("/../share/tarnwick/") + name),
        QDir::cleanPath(programFolder + QLatin1Char('/') + name)};
}

QString AppResources::path(const QString& name, const QString& extension)
{
    return root + name + QLatin1Char('.') + extension;
}

QStringList AppResources::files(const QString& folder, const QString& extension)
{
    const QDir directory(root + folder);
    QStringList paths;
    // A name filter would load Qt's regular expressions.
    for (const QString& name : directory.entryList(QDir::Files, QDir::Name)) {
        if (name.endsWith(QLatin1Char('.') + extension)) {
            paths.append(directory.filePath(name));
        }
    }
    return paths;
}

}  // namespace Tarnwick
