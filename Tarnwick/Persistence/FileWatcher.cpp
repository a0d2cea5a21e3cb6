#include "Tarnwick/Persistence/FileWatcher.h"

#include <QFile>
#include <QStringList>

#include <algorithm>
#include <system_error>
#include <utility>

namespace Tarnwick {
namespace {

namespace fs = std::filesystem;

QString nameOf(const fs::path& path)
{
    return QFile::decodeName(path.c_str());
}

/// Adds the folders in which a change can redirect the path: those of its symbolic links, and the
/// parent of a missing folder.
void addFolder(QStringList& places, const fs::path& folder)
{
    std::error_code error;
    fs::path reached;
    for (const fs::path& name : folder) {
        const fs::path next = reached / name;
        if (fs::is_symlink(next, error)) {
            places.append(nameOf(reached));
        }
        if (!fs::is_directory(next, error)) {
            break;
        }
        reached = next;
    }
    places.append(nameOf(reached));
}

/// Everything to watch for a file. inotify reports entries made, moved and removed in a watched
/// folder, and writes to a watched file.
QStringList placesOnTheWayTo(fs::path file)
{
    constexpr int mostLinks = 16;
    QStringList places;
    std::error_code error;
    for (int links = 0; links < mostLinks; ++links) {
        addFolder(places, file.parent_path());
        const fs::path target = fs::read_symlink(file, error);
        if (error) {
            break;
        }
        file = (file.parent_path() / target).lexically_normal();
    }
    if (fs::is_regular_file(file, error)) {
        places.append(nameOf(file));
    }
    places.removeDuplicates();
    return places;
}

}  // namespace

FileWatcher::FileWatcher(fs::path file, std::chrono::milliseconds restBefore)
    : _file(std::move(file))
    , _restBefore(restBefore)
    , _stamp(Files::stampOf(_file))
{
    _rest.setSingleShot(true);
    connect(&_rest, &QTimer::timeout, this, &FileWatcher::check);
    connect(&_watcher, &QFileSystemWatcher::fileChanged, this, &FileWatcher::noteChange);
    connect(&_watcher, &QFileSystemWatcher::directoryChanged, this, &FileWatcher::noteChange);
    watch();
}

void FileWatcher::noteChange()
{
    const auto now = std::chrono::steady_clock::now();
    const auto first = _first.value_or(now);
    _first = first;
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(first + patience - now);
    _rest.start(std::clamp(left, std::chrono::milliseconds{0}, _restBefore));
}

void FileWatcher::check()
{
    _first.reset();
    // A watch ends with its file or folder, and follows one that is moved. The stamp catches
    // changes between the old watches and the new ones.
    watch();
    if (std::exchange(_stamp, Files::stampOf(_file)) != _stamp) {
        Q_EMIT changed();
    }
}

void FileWatcher::watch()
{
    const QStringList old = _watcher.files() + _watcher.directories();
    if (!old.isEmpty()) {
        _watcher.removePaths(old);
    }
    _watcher.addPaths(placesOnTheWayTo(_file));
}

}  // namespace Tarnwick
