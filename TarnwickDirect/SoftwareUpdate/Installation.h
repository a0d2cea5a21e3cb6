#pragma once

#include "TarnwickDirect/SoftwareUpdate/Command.h"

namespace TarnwickDirect {

/// How this copy of the program was installed, and thus how it is updated.
struct Installation {
    enum class Kind {
        debianPackage,      ///< From a manually installed package file.
        repositoryPackage,  ///< From a repository of the package manager.
        source,             ///< Built locally or unpacked from an archive.
    };

    Kind kind = Kind::source;
    QString package = {};  ///< For both kinds of packages.

    /// With `debianPackage`; after an update newer than the running version.
    QString packageVersion = {};

    bool operator==(const Installation&) const = default;

    /// Whether a downloaded package can be installed.
    bool takesPackages() const { return kind == Kind::debianPackage; }
};

/// Asks dpkg for the package and apt for its repository. Blocks; call on a worker thread.
Installation findInstallation(const QString& executable, const RunCommand& run);

}  // namespace TarnwickDirect
