#pragma once

#include <QString>
#include <QStringList>

namespace Tarnwick {

/// The drawings and fonts in the resource file "Tarnwick_Tarnwick.bundle". Main thread only.
class AppResources {
public:
    /// Loads the bundle at the first call. Throws `std::runtime_error` that names the searched
    /// places if it is in none of them.
    static const AppResources& bundle();

    /// Loads the first of these files that is a bundle.
    explicit AppResources(const QStringList& candidates);

    /// Where the bundle may be for a program in this folder: in the share folder of the
    /// installation, or beside the program in a build folder.
    static QStringList candidates(const QString& programFolder);

    /// The path of a file in the bundle, such as ":/tarnwick/stack.svg". The file need not exist.
    static QString path(const QString& name, const QString& extension);

    /// The files with this extension in a folder of the bundle, sorted by name.
    static QStringList files(const QString& folder, const QString& extension);
};

}  // namespace Tarnwick
