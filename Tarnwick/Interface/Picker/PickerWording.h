#pragma once

#include "PullRequestKit/RepositorySummary.h"

#include <QString>

#include <cstddef>

namespace Tarnwick {

/// The texts of the repository picker.
namespace PickerWording {

/// Whether the name is followed by a closed eye.
bool isPrivate(const PullRequestKit::RepositorySummary& repository);

/// "Private", "Internal" and so on, or "Unknown visibility".
QString visibility(const PullRequestKit::RepositorySummary& repository);

/// The second line: visibility, language if known, and "Archived".
QString details(const PullRequestKit::RepositorySummary& repository);

/// The full name and the second line.
QString sentence(const PullRequestKit::RepositorySummary& repository);

QString selectedCount(std::size_t count);

QString ownerButton(bool isAllSelected);

/// A note on the project directory in three pieces. The middle one may be elided.
struct DirectoryNote {
    QString before;
    QString directory;
    QString after;

    QString text() const { return before + directory + after; }
};

/// An empty directory is shown as a placeholder.
DirectoryNote directoryNote(const QString& directory);

/// The directory does not exist.
DirectoryNote missingNote(const QString& directory);

}  // namespace PickerWording

}  // namespace Tarnwick
