#pragma once

#include <QString>
#include <QUrl>

namespace TarnwickDirect {

/// The name of the file that an address leads to: the last part of its path, as nothing but a name.
/// Throws `UpdateError` where that is empty, hidden, too long for a file system, or holds a path or
/// control characters, written out or as "%2F". Safe from any thread.
QString downloadName(const QUrl& url);

}  // namespace TarnwickDirect
