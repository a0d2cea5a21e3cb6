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

/// What hides a pull request, such as "Hidden by Status" or "Muted until 14:05"; empty for one that
/// is not hidden. Without a time a mute lasts until the pull request changes.
QString hiddenReason(
    Sight sight, const std::optional<PullRequestKit::Date>& mutedUntil, const QTimeZone& zone);

/// How long ago in a few characters: "now", "48m", "3h", "6d", "3w"; from four weeks on the day of
/// this year in the zone, "12 Mar", or the month of an earlier one, "Mar 2025". An instant to come
/// counts as now.
QString age(PullRequestKit::Date instant, PullRequestKit::Date now, const QTimeZone& zone);

/// Why a row stands where it does, such as "Waiting for mara, noa-b", or why it is hidden.
struct Reason {
    QString words;           ///< The whole reason where there are no names; empty for no reason.
    QStringList names = {};  ///< Behind the words; none is empty.
    bool isStrong = false;   ///< It asks something of the user.

    bool isEmpty() const { return words.isEmpty(); }

    bool operator==(const Reason&) const = default;
};

/// That it is a draft is no reason here, because the line of a draft says so anyway.
Reason turnReason(const PullRequestKit::Turn& turn);

/// As one text. No name can turn the direction of what follows it.
QString reasonText(const Reason& reason);

/// The pieces of the quiet line below the title.
struct Details {
    bool isDraft = false;
    Reason reason;  ///< May be empty.
    QString owner;  ///< With the slash behind it; empty where the repository's name has none.
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

/// The pieces as one text. The author's name cannot turn the direction of what follows it.
QString detailsText(const Details& details);

/// What a screen reader says after the row's label: the reason, what has changed, which may be
/// empty, the line without the reason, then what the counts consist of. `known` may be null.
QString accessibilityDescription(
    const Details& details,
    const QString& changed,
    const PullRequestKit::PullRequest& pullRequest,
    const PullRequestKit::PullRequestDetails* known);

}  // namespace RowWording

}  // namespace Tarnwick
