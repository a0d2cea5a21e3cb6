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

/// A row of the list with everything it shows.
struct ListedRow {
    std::shared_ptr<const PullRequestKit::PullRequestRow> row;  ///< Not null.
    bool isVisited = false;
    Sight sight = Sight::inSight;
    std::optional<PullRequestKit::Date> mutedUntil = {};  ///< Of a mute until a time.
    SinceVisit since = {};
    std::shared_ptr<const PullRequestKit::PullRequestDetails> details =
        nullptr;  ///< Null when unknown.
    /// Null unless the list is arranged by turn.
    std::shared_ptr<const PullRequestKit::Turn> turn = nullptr;
    /// The heading of the row's stack. Only with a turn.
    PullRequestKit::Whose heading = PullRequestKit::Whose::others;

    bool operator==(const ListedRow& other) const;
};

/// A listed row with prepared texts, for painting and searching. Main thread only.
class RowContent {
public:
    explicit RowContent(ListedRow listed);

    /// Requires: `listed` equals the current row.
    void replace(ListedRow listed) { _listed = std::move(listed); }

    const PullRequestKit::PullRequestRow& row() const { return *_listed.row; }

    const PullRequestKit::PullRequest& pullRequest() const { return row().pullRequest; }

    bool isVisited() const { return _listed.isVisited; }

    /// Whether the row is hidden but shown anyway: without color, and with the reason.
    bool isDimmed() const { return isHidden(_listed.sight); }

    /// Whether the row is marked as changed since the user last opened it.
    bool hasChanged() const { return !_listed.since.changes.empty() && !isDimmed(); }

    const SinceVisit& since() const { return _listed.since; }

    /// The start of the line of details: why the row is hidden, or what it waits for.
    RowWording::Reason reason() const;

    /// Whether the heading applies to the row itself and not only to its stack.
    bool earnsHeading() const
    {
        return _listed.turn != nullptr && _listed.turn->whose == _listed.heading && !isDimmed();
    }

    /// Null when unknown.
    const PullRequestKit::PullRequestDetails* details() const { return _listed.details.get(); }

    const ListedRow& listed() const { return _listed; }

    const QString& title() const { return _title; }

    /// May be empty.
    const QString& warning() const { return _warning; }

    const QString& reviewLabel() const { return _reviewLabel; }

    const QString& checkLabel() const { return _checkLabel; }

    CountWidths countWidths() const;

    /// "stack" or "git-pull-request".
    QString stateIconName() const;

    /// Whether every folded word is in the `searchText` of the pull request.
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
