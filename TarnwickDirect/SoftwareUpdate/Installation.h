#pragma once

#include "GitHubProvider/CommandRunning.h"
#include "GitHubProvider/GhDiscovery.h"
#include "TarnwickDirect/SoftwareUpdate/PackageFormat.h"

#include <filesystem>
#include <string>

namespace TarnwickDirect {

/// How this copy of the program came to be where it is, and so who brings it up to date.
struct Installation {
    enum class Kind {
        appImage,           ///< A single file, which replaces itself.
        debianPackage,      ///< A package file that was installed by hand.
        repositoryPackage,  ///< A package that the system's package manager updates.
        source,             ///< Built on this machine, or unpacked from somewhere.
    };

    Kind kind = Kind::source;
    std::filesystem::path program =
        {};                    ///< What the next version takes the place of; not with `source`.
    std::string package = {};  ///< The name of the package, with both kinds of them.

    /// Without what the packager has appended; only with `debianPackage`. Another version than the
    /// one that runs was installed meanwhile.
    std::string packageVersion = {};

    bool operator==(const Installation&) const = default;

    /// The files that can be installed, or nothing where only the news of them is of use.
    std::optional<PackageFormat> format() const;
};

/// Finds out which. What dpkg owns is a package, and apt knows whether a repository has it. Blocks;
/// call on a worker thread. Throws nothing but `CancellationError`.
Installation findInstallation(
    const GitHub::Environment& environment,
    const std::filesystem::path& executable,
    const GitHub::CommandRunning& runner,
    std::stop_token stopToken);

}  // namespace TarnwickDirect
