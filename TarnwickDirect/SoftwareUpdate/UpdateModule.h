#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdaterController.h"

#include <QString>

#include <filesystem>
#include <set>

namespace TarnwickDirect {

/// What the module gets from the program: only values and functions, because it shares no code with
/// the program. All are set. Main thread only.
struct ModuleHost {
    QString version;                       ///< Of the running program.
    std::filesystem::path downloadFolder;  ///< Used by this program only.

    /// The additional channels selected by the user.
    std::function<std::set<QString>()> channels;

    /// The version to skip; may be empty.
    std::function<QString()> skippedVersion;
    std::function<void(const QString& version)> skip;

    /// As in `UpdaterHost`.
    std::function<void(QWidget&)> bringToFront;
    std::function<void()> takeFocusBack;
};

/// The module's exports: "tarnwickUpdaterVersion" returns the version of its program, and
/// "tarnwickUpdater" creates an updater owned by the caller.
using VersionOfModule = const char* (*)();
using MakeUpdaterOfModule = UpdaterController* (*)(const ModuleHost&, UpdaterDelegate&);

}  // namespace TarnwickDirect
