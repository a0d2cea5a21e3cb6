#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdaterController.h"

#include <QString>

#include <filesystem>
#include <set>

namespace TarnwickDirect {

/// What the module has of the program that loads it: values and functions, because the module
/// shares no code with the program. All are there. Main thread only.
struct ModuleHost {
    QString version;                       ///< Of the program that runs.
    std::filesystem::path downloadFolder;  ///< Of this program alone.

    /// The channels of the feed that the user takes beside the common one.
    std::function<std::set<QString>()> channels;

    /// The version that the user does not want to hear of; empty for none.
    std::function<QString()> skippedVersion;
    std::function<void(const QString& version)> skip;

    /// As in `UpdaterHost`.
    std::function<void(QWidget&)> bringToFront;
    std::function<void()> takeFocusBack;
};

/// What the module offers: under the name "tarnwickUpdaterVersion" the version of the program that
/// it belongs to, and under "tarnwickUpdater" an updater that belongs to the caller.
using VersionOfModule = const char* (*)();
using MakeUpdaterOfModule = UpdaterController* (*)(const ModuleHost&, UpdaterDelegate&);

}  // namespace TarnwickDirect
