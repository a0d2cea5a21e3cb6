#pragma once

#include "Tarnwick/Persistence/Files.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <filesystem>
#include <optional>

namespace Tarnwick {

/// Tells when a file is another one than before: written in place, replaced, made, removed, or
/// reached through a symbolic link that leads elsewhere now. Neither the file nor its folder need
/// exist. Nothing wakes up while nothing happens in the folders on the way to the file. Main thread
/// only.
class FileWatcher final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(FileWatcher)

public:
    /// Editors empty a file before they write it: what has changed is looked at once nothing has
    /// happened for this long.
    static constexpr std::chrono::milliseconds rest{150};

    /// And at the latest this long after the first of many changes.
    static constexpr std::chrono::milliseconds patience{600};

    /// With another rest where nothing writes the file in pieces.
    explicit FileWatcher(std::filesystem::path file, std::chrono::milliseconds restBefore = rest);
    ~FileWatcher() override = default;

Q_SIGNALS:
    void changed();

private:
    void somethingHappened();
    void look();
    void watch();

    std::filesystem::path _file;
    std::chrono::milliseconds _restBefore;
    Files::Stamp _stamp;
    QFileSystemWatcher _watcher;
    QTimer _rest;
    std::optional<std::chrono::steady_clock::time_point> _first;  ///< Of the changes not looked at.
};

}  // namespace Tarnwick
