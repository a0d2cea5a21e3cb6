#pragma once

#include "PullRequestKit/RepositorySummary.h"

#include <QString>

namespace Tarnwick {

struct RepositoryLabel {
    PullRequestKit::RepositorySummary repository;
    QString name;        ///< Without its owner.
    QString details;     ///< The second line.
    QString searchText;  ///< The full name, folded.
    bool isPrivate = false;
    bool isSelected = false;
    bool isChanged = false;  ///< Since the last `dataChanged`.

    explicit RepositoryLabel(const PullRequestKit::RepositorySummary& summary);
};

/// An owner's label above the repositories.
struct RepositoryOwnerLabel {
    QString owner;
    int shownCount = 0;     ///< Listed repositories.
    int selectedCount = 0;  ///< Selected ones among them.
    bool isChanged = false;

    /// The owner's button then deselects them.
    bool allSelected() const { return shownCount > 0 && selectedCount == shownCount; }
};

/// A row of the picker: an owner's label, or a repository. Main thread only.
struct PickerRow {
    RepositoryOwnerLabel* owner = nullptr;
    RepositoryLabel* repository = nullptr;  ///< Null in an owner's row.

    bool isOwner() const { return repository == nullptr; }

    bool operator==(const PickerRow&) const = default;
};

}  // namespace Tarnwick
