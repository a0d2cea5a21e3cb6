#pragma once

#include "PullRequestKit/RepositorySummary.h"

#include <QString>

namespace Tarnwick {

/// A repository as the picker lists it.
struct RepositoryLabel {
    PullRequestKit::RepositorySummary repository;
    QString name;        ///< Without its owner.
    QString details;     ///< The second line.
    QString searchText;  ///< The full name without regard to letter case.
    bool isPrivate = false;
    bool isSelected = false;
    bool isChanged = false;  ///< Since the row was last announced.

    explicit RepositoryLabel(const PullRequestKit::RepositorySummary& summary);
};

/// An owner's label above its repositories.
struct RepositoryOwnerLabel {
    QString owner;
    int shownCount = 0;     ///< Of its repositories, those that are listed.
    int selectedCount = 0;  ///< Of these, the selected ones.
    bool isChanged = false;

    /// Whether its button takes the selection back.
    bool allSelected() const { return shownCount > 0 && selectedCount == shownCount; }
};

/// A row of the picker: an owner's label, or a repository below it. Main thread only.
struct PickerRow {
    RepositoryOwnerLabel* owner = nullptr;
    RepositoryLabel* repository = nullptr;  ///< Null in the owner's own row.

    bool isOwner() const { return repository == nullptr; }

    bool operator==(const PickerRow&) const = default;
};

}  // namespace Tarnwick
