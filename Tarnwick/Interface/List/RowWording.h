#pragma once

#include "PullRequestKit/Date.h"
#include "PullRequestKit/PullRequestDetails.h"
#include "PullRequestKit/PullRequestRow.h"
#include "PullRequestKit/Turn.h"
#include "Tarnwick/Model/RowFilter.h"

#include <QString>
#include <QStringList>
#include <QTimeZone>

namespace Tarnwick {

/// The texts of a row. Safe from any thread.
namespace RowWording {

/// "Draft pull request", or by state, such as "Open pull request".
QString stateDescription(const PullRequestKit::PullRequest& pullRequest);

/// The tool tip of the state icon: the state, after "Stacked " in a stack.
QString stateToolTip(const PullRequestKit::PullRequestRow& row);

QString reviewPhrase(PullRequestKit::ReviewState state);

/// The row as a sentence for screen readers.
QString accessibilityLabel(const PullRequestKit::PullRequest& pullRequest);

/// The tool tips of the badges: what is counted, and in detail. `details` may be null.
QString reviewToolTip(
    const PullRequestKit::PullRequest& pullRequest,
    const PullRequestKit::PullRequestDetails* details);
QString checkToolTip(
    const PullRequestKit::PullRequest& pullRequest,
    const PullRequestKit::PullRequestDetails* details);

inline const QString conflictToolTip = QStringLiteral("Merge conflict");
inline const QString editorToolTip = QStringLiteral("Open in Editor");
inline const QString openToolTip = QStringLiteral("Opens this pull request in your browser");

/// Such as "Hidden by Status" or "Muted until 14:05"; empty if not hidden. A mute without a time
/// lasts until the pull request changes.
QString hiddenReason(
    Sight sight, const std::optional<PullRequestKit::Date>& mutedUntil, const QTimeZone& zone);

/// A short age: "now", "48m", "3h", "6d", "3w"; after four weeks a date such as "12 Mar", or "Mar
/// 2025" in an earlier year. An instant in the future counts as now.
QString age(PullRequestKit::Date instant, PullRequestKit::Date now, const QTimeZone& zone);

/// Why the row is in its group, such as "Waiting for mara, noa-b", or why it is hidden.
struct Reason {
    QString words;           ///< Without the names; may be empty.
    QStringList names = {};  ///< They follow the words; none is empty.
    bool isStrong = false;   ///< The user can act on it.

    bool isEmpty() const { return words.isEmpty(); }

    bool operator==(const Reason&) const = default;
};

/// Empty for a draft: the line of details says so anyway.
Reason turnReason(const PullRequestKit::Turn& turn);

/// The reason as text. Names cannot change the direction of following text.
QString reasonText(const Reason& reason);

/// The pieces of the line of details.
struct Details {
    bool isDraft = false;
    Reason reason;  ///< May be empty.
    QString owner;  ///< With a slash at its end; empty if the repository's name has no owner.
    QString repository;
    QString number;  ///< With its "#".
    QString author;
    QString age;

    bool operator==(const Details&) const = default;
};

Details details(
    const PullRequestKit::PullRequest& pullRequest,
    const Reason& reason,
    PullRequestKit::Date now,
    const QTimeZone& zone);

/// The line as text. The author's name cannot change the direction of following text.
QString detailsText(const Details& details);

/// The accessible description: the reason, the changes, the rest of the line, then the composition
/// of the counts. `changed` may be empty, `known` null.
QString accessibilityDescription(
    const Details& details,
    const QString& changed,
    const PullRequestKit::PullRequest& pullRequest,
    const PullRequestKit::PullRequestDetails* known);

}  // namespace RowWording

}  // namespace Tarnwick
