#pragma once

#include "PullRequestKit/PullRequestDetails.h"
#include "PullRequestKit/PullRequestRow.h"
#include "PullRequestKit/Turn.h"
#include "Tarnwick/Interface/List/RowGeometry.h"
#include "Tarnwick/Interface/List/RowWording.h"
#include "Tarnwick/Model/RowFilter.h"
#include "Tarnwick/Persistence/VisitStore.h"

#include <QString>

#include <memory>
#include <utility>

namespace Tarnwick {

/// A row of the menu, whether the user has seen the pull request as it is now, what hides it when
/// the row is shown all the same, what is new to the user, the names behind its counts, and whose
/// move it waits for.
struct ListedRow {
    std::shared_ptr<const PullRequestKit::PullRequestRow> row;  ///< Not null.
    bool isVisited = false;
    Sight sight = Sight::inSight;
    std::optional<PullRequestKit::Date> mutedUntil = {};  ///< Of a mute that ends by its time.
    SinceVisit since = {};
    std::shared_ptr<const PullRequestKit::PullRequestDetails> details =
        nullptr;  ///< Null when not known.
    /// Null but where the list is arranged by it.
    std::shared_ptr<const PullRequestKit::Turn> turn = nullptr;
    /// What the row stands under, with the rest of its stack. Only with a turn.
    PullRequestKit::Whose heading = PullRequestKit::Whose::others;

    bool operator==(const ListedRow& other) const;
};

/// A listed row with its words made ready, so that painting and searching need not do it again.
/// Main thread only.
class RowContent {
public:
    explicit RowContent(ListedRow listed);

    /// Requires: `listed` is equal to the row.
    void replace(ListedRow listed) { _listed = std::move(listed); }

    const PullRequestKit::PullRequestRow& row() const { return *_listed.row; }

    const PullRequestKit::PullRequest& pullRequest() const { return row().pullRequest; }

    bool isVisited() const { return _listed.isVisited; }

    /// Whether the row is hidden and shown all the same: without color, and saying why.
    bool isDimmed() const { return isHidden(_listed.sight); }

    /// Whether it carries the mark of what has changed since the user last opened it.
    bool hasChanged() const { return !_listed.since.changes.empty() && !isDimmed(); }

    const SinceVisit& since() const { return _listed.since; }

    /// What the line of details begins with: why the row is hidden, or what it waits for.
    RowWording::Reason reason() const;

    /// Whether the row itself is what its heading says, and not only another one of its stack.
    bool earnsHeading() const
    {
        return _listed.turn != nullptr && _listed.turn->whose == _listed.heading && !isDimmed();
    }

    /// Null where they are not known.
    const PullRequestKit::PullRequestDetails* details() const { return _listed.details.get(); }

    const ListedRow& listed() const { return _listed; }

    const QString& title() const { return _title; }

    /// Empty where the row has none.
    const QString& warning() const { return _warning; }

    const QString& reviewLabel() const { return _reviewLabel; }

    const QString& checkLabel() const { return _checkLabel; }

    CountWidths countWidths() const;

    /// "stack" or "git-pull-request".
    QString stateIconName() const;

    /// Whether each of the words, which are folded, is in the title, the repository, the number
    /// with its "#", the author or a branch.
    bool matches(const QStringList& foldedWords) const;

private:
    ListedRow _listed;
    QString _title;
    QString _warning;
    QString _reviewLabel;
    QString _checkLabel;
    mutable QString _searchText;
};

}  // namespace Tarnwick
