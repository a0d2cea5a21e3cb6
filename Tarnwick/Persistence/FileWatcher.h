#pragma once

#include "Tarnwick/Persistence/Files.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <filesystem>
#include <optional>

namespace Tarnwick {

/// Reports when a file is written, replaced, created, removed or reached through a redirected
/// symbolic link. Neither the file nor its folder need exist. Does not poll. Main thread only.
class FileWatcher final : public QObject {
    Q_OBJECT

public:
    /// The time without changes before a report: editors truncate a file before they write it.
    static constexpr std::chrono::milliseconds rest{150};

    /// The maximum delay of a report during continuous changes.
    static constexpr std::chrono::milliseconds patience{600};

    /// A shorter delay suits files that are always replaced as a whole.
    explicit FileWatcher(std::filesystem::path file, std::chrono::milliseconds restBefore = rest);

Q_SIGNALS:
    void changed();

private:
    void noteChange();
    void check();
    void watch();

    std::filesystem::path _file;
    std::chrono::milliseconds _restBefore;
    Files::Stamp _stamp;
    QFileSystemWatcher _watcher;
    QTimer _rest;
    std::optional<std::chrono::steady_clock::time_point> _first;  ///< First unreported change.
};

}  // namespace Tarnwick
