#pragma once

#include <QString>
#include <QStringList>

namespace Tarnwick {

/// The program's drawings and fonts, a Qt resource file named "Tarnwick_Tarnwick.bundle" in the
/// program's resource folder. Main thread only.
class AppResources {
public:
    /// Loads the bundle at the first call. Throws `std::runtime_error` that names the places looked
    /// at when it is in none of them; the program cannot go on without.
    static const AppResources& bundle();

    /// The same for these files, of which the first that is a bundle is taken.
    explicit AppResources(const QStringList& candidates);

    /// Where the bundle may lie for a program in this folder: in the share folder of the same
    /// installation, or beside the program where that was built.
    static QStringList candidates(const QString& programFolder);

    /// The path of a file in the bundle, such as ":/tarnwick/stack.svg", whether or not it is
    /// there.
    static QString path(const QString& name, const QString& extension);

    /// The files of a folder within the bundle that have this extension, in the order of their
    /// names.
    static QStringList files(const QString& folder, const QString& extension);
};

}  // namespace Tarnwick
