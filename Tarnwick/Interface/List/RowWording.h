#pragma once

#include "PullRequestKit/Date.h"
#include "PullRequestKit/PullRequestDetails.h"
#include "PullRequestKit/PullRequestRow.h"
#include "Tarnwick/Model/RowFilter.h"

#include <QString>
#include <QTimeZone>

namespace Tarnwick {

/// The words of a row. Pure functions, safe from any thread.
namespace RowWording {

/// "Draft pull request", or the state's word: "Open pull request".
QString stateDescription(const PullRequestKit::PullRequest& pullRequest);

/// The help text of the state icon: the state, after "Stacked " where the row belongs to a stack.
QString stateHelpText(const PullRequestKit::PullRequestRow& row);

QString reviewPhrase(PullRequestKit::ReviewState state);

/// The whole row as one sentence, as a screen reader says it.
QString accessibilityLabel(const PullRequestKit::PullRequest& pullRequest);

/// The help texts of the badges: what each count is of, and below it what it consists of.
/// `details` may be null.
QString reviewHelpText(
    const PullRequestKit::PullRequest& pullRequest,
    const PullRequestKit::PullRequestDetails* details);
QString checkHelpText(
    const PullRequestKit::PullRequest& pullRequest,
    const PullRequestKit::PullRequestDetails* details);

inline const QString conflictHelpText = QStringLiteral("Merge conflict");
inline const QString editorHelpText = QStringLiteral("Open in Editor");
inline const QString openHelpText = QStringLiteral("Opens this pull request in your browser");

/// What hides a pull request, such as "Hidden by Status"; empty for one that is not hidden.
QString hiddenReason(Sight sight);

/// How long ago in a few characters: "now", "48m", "3h", "6d", "3w"; from four weeks on the day of
/// this year in the zone, "12 Mar", or the month of an earlier one, "Mar 2025". An instant to come
/// counts as now.
QString age(PullRequestKit::Date instant, PullRequestKit::Date now, const QTimeZone& zone);

/// The pieces of the quiet line below the title.
struct Details {
    bool isDraft = false;
    QString reason;  ///< Why the row is as it is; may be empty.
    QString owner;   ///< With the slash behind it; empty where the repository's name has none.
    QString repository;
    QString number;  ///< With its "#".
    QString author;
    QString age;

    bool operator==(const Details&) const = default;
};

Details details(
    const PullRequestKit::PullRequest& pullRequest,
    const QString& reason,
    PullRequestKit::Date now,
    const QTimeZone& zone);

/// The pieces as one text. The author's name cannot turn the direction of what follows it.
QString detailsText(const Details& details);

/// What a screen reader says after the row's label: the reason, the line without it, then what the
/// counts consist of. `known` may be null.
QString accessibilityDescription(
    const Details& details,
    const PullRequestKit::PullRequest& pullRequest,
    const PullRequestKit::PullRequestDetails* known);

}  // namespace RowWording

}  // namespace Tarnwick
