#pragma once

#include "TarnwickDirect/SoftwareUpdate/Command.h"

namespace TarnwickDirect {

/// How this copy of the program was installed, and so who brings it up to date.
struct Installation {
    enum class Kind {
        debianPackage,      ///< A package file that was installed by hand.
        repositoryPackage,  ///< A package that the system's package manager updates.
        source,             ///< Built on this machine, or unpacked from somewhere.
    };

    Kind kind = Kind::source;
    QString package = {};  ///< The name of the package, with both kinds of them.

    /// The program's version in the package; only with `debianPackage`. It differs from the one
    /// that runs when another was installed meanwhile.
    QString packageVersion = {};

    bool operator==(const Installation&) const = default;

    /// Whether a downloaded package can be installed.
    bool takesPackages() const { return kind == Kind::debianPackage; }
};

/// Finds out which. What dpkg owns is a package, and apt knows whether a repository has it. Blocks;
/// call on a worker thread.
Installation findInstallation(const QString& executable, const RunCommand& run);

}  // namespace TarnwickDirect
