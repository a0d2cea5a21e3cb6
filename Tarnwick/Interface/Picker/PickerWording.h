#pragma once

#include "PullRequestKit/RepositorySummary.h"

#include <QString>

#include <cstddef>

namespace Tarnwick {

/// What the repository picker says. Pure functions.
namespace PickerWording {

/// Whether the repository has the closed eye beside its name.
bool isPrivate(const PullRequestKit::RepositorySummary& repository);

/// "Private", "Internal" and so on, or "Unknown visibility".
QString visibility(const PullRequestKit::RepositorySummary& repository);

/// The second line: visibility, language where there is one, "Archived" where it is.
QString details(const PullRequestKit::RepositorySummary& repository);

/// The row in words: its whole name and what the second line says.
QString sentence(const PullRequestKit::RepositorySummary& repository);

QString selectedCount(std::size_t count);

/// The button of an owner.
QString ownerButton(bool isAllSelected);

/// The note that tells where repositories lie, in three pieces, of which the middle one may be
/// shortened.
struct DirectoryNote {
    QString before;
    QString directory;
    QString after;

    QString text() const { return before + directory + after; }
};

/// An empty directory is spelled as its place in the sentence.
DirectoryNote directoryNote(const QString& directory);

/// That the directory does not exist.
DirectoryNote missingNote(const QString& directory);

}  // namespace PickerWording

}  // namespace Tarnwick
