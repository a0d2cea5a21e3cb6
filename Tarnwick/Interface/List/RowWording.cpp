#include "Tarnwick/Interface/List/RowWording.h"

#include "PullRequestKit/TurnWording.h"
#include "Tarnwick/Interface/List/CountWording.h"
#include "Tarnwick/Interface/List/Names.h"

#include <QDateTime>
#include <QLocale>
#include <QStringList>

namespace Tarnwick::RowWording {
namespace {

using namespace PullRequestKit;
using namespace std::chrono_literals;

QString stateWord(PullRequestState state)
{
    switch (state) {
    case PullRequestState::open:
        return QStringLiteral("Open");
    case PullRequestState::closed:
        return QStringLiteral("Closed");
    case PullRequestState::merged:
        return QStringLiteral("Merged");
    }
    return {};
}

QString calendarAge(Date instant, Date now, const QTimeZone& zone)
{
    const auto local = [&](Date date) {
        return QDateTime::fromSecsSinceEpoch(date.time_since_epoch().count(), zone).date();
    };
    const QDate day = local(instant);
    const bool isThisYear = day.year() == local(now).year();
    return QLocale::c().toString(
        day, isThisYear ? QStringLiteral("d MMM") : QStringLiteral("MMM yyyy"));
}

}  // namespace

QString stateDescription(const PullRequest& pullRequest)
{
    const QString word =
        pullRequest.isDraft ? QStringLiteral("Draft") : stateWord(pullRequest.state);
    return word + QStringLiteral(" pull request");
}

QString stateToolTip(const PullRequestRow& row)
{
    const QString description = stateDescription(row.pullRequest);
    const bool isStacked = row.depth > 0 || row.hasChildren;
    return isStacked ? QStringLiteral("Stacked ") + description : description;
}

QString reviewPhrase(ReviewState state)
{
    switch (state) {
    case ReviewState::none:
        return QStringLiteral("No reviewers");
    case ReviewState::pending:
        return QStringLiteral("Reviews pending");
    case ReviewState::approved:
        return QStringLiteral("All reviews approved");
    case ReviewState::commented:
        return QStringLiteral("Reviews commented");
    case ReviewState::changesRequested:
        return QStringLiteral("Changes requested");
    }
    return {};
}

QString accessibilityLabel(const PullRequest& pullRequest)
{
    const QString comma = QStringLiteral(", ");
    const QString conflict =
        pullRequest.hasMergeConflict() ? QStringLiteral("merge conflict, ") : QString();
    return QString::fromStdString(pullRequest.title) + comma + stateDescription(pullRequest) + comma
           + conflict + reviewPhrase(pullRequest.reviewState) + comma
           + QString::fromStdString(pullRequest.checks.label()) + QStringLiteral(" checks");
}

QString reviewToolTip(const PullRequest& pullRequest, const PullRequestDetails* details)
{
    QStringList lines{QString::fromStdString(pullRequest.reviewCountTooltip())};
    if (details != nullptr) {
        lines.append(CountWording::reviewLines(*details));
    }
    return lines.join(QLatin1Char('\n'));
}

QString checkToolTip(const PullRequest& pullRequest, const PullRequestDetails* details)
{
    QStringList lines{QStringLiteral("Checks passed / total checks")};
    if (details != nullptr) {
        lines.append(CountWording::checkLines(pullRequest.checks, *details));
    }
    return lines.join(QLatin1Char('\n'));
}

QString hiddenReason(Sight sight, const std::optional<Date>& mutedUntil, const QTimeZone& zone)
{
    switch (sight) {
    case Sight::muted: {
        if (!mutedUntil) {
            return QStringLiteral("Muted until it changes");
        }
        const QDateTime local =
            QDateTime::fromSecsSinceEpoch(mutedUntil->time_since_epoch().count(), zone);
        return QStringLiteral("Muted until ") + local.toString(QStringLiteral("HH:mm"));
    }
    case Sight::authorMuted:
        return QStringLiteral("Author muted");
    case Sight::hiddenByStatus:
        return QStringLiteral("Hidden by Status");
    case Sight::hiddenByMergeability:
        return QStringLiteral("Hidden by Merge-ready");
    case Sight::hiddenByReviews:
        return QStringLiteral("Hidden by Reviews");
    case Sight::hiddenByChecks:
        return QStringLiteral("Hidden by Checks");
    case Sight::otherRepository:
    case Sight::inSight:
        return {};
    }
    return {};
}

QString age(Date instant, Date now, const QTimeZone& zone)
{
    const auto elapsed = now - instant;
    if (elapsed < 1min) {
        return QStringLiteral("now");
    }
    if (elapsed < 1h) {
        return QString::number(elapsed / 1min) + QLatin1Char('m');
    }
    if (elapsed < std::chrono::days(1)) {
        return QString::number(elapsed / 1h) + QLatin1Char('h');
    }
    if (elapsed < std::chrono::weeks(1)) {
        return QString::number(elapsed / std::chrono::days(1)) + QLatin1Char('d');
    }
    if (elapsed < std::chrono::weeks(4)) {
        return QString::number(elapsed / std::chrono::weeks(1)) + QLatin1Char('w');
    }
    return calendarAge(instant, now, zone);
}

Reason turnReason(const Turn& turn)
{
    if (turn.reason == TurnReason::draft) {
        return {};
    }
    Turn worded = turn;
    Reason reason{
        .words = {}, .names = Names::shown(turn.names), .isStrong = asksSomething(turn.whose)};
    if (reason.names.isEmpty()) {
        worded.names.clear();
    }
    reason.words = QString::fromStdString(reasonWords(worded));
    if (reason.names.isEmpty() && reason.words.endsWith(QLatin1Char(' '))) {
        reason.names.append(QStringLiteral("…"));
    }
    return reason;
}

QString reasonText(const Reason& reason)
{
    QStringList names;
    for (const QString& name : reason.names) {
        names.append(Names::isolated(name));
    }
    return reason.words + names.join(QStringLiteral(", "));
}

Details details(
    const PullRequest& pullRequest, const Reason& reason, Date now, const QTimeZone& zone)
{
    const QString name = QString::fromStdString(pullRequest.id.repository);
    const auto ownerLength = name.indexOf(QLatin1Char('/')) + 1;
    return {
        .isDraft = pullRequest.isDraft,
        .reason = reason,
        .owner = name.left(ownerLength),
        .repository = name.mid(ownerLength),
        .number = QLatin1Char('#') + QString::number(pullRequest.id.number),
        .author = QString::fromStdString(pullRequest.author),
        .age = age(pullRequest.updatedAt, now, zone)};
}

QString detailsText(const Details& details)
{
    QStringList pieces;
    if (details.isDraft) {
        pieces.append(QStringLiteral("Draft"));
    }
    if (!details.reason.isEmpty()) {
        pieces.append(reasonText(details.reason));
    }
    pieces.append(details.owner + details.repository + QLatin1Char(' ') + details.number);
    if (!details.author.isEmpty()) {
        pieces.append(Names::isolated(details.author));
    }
    pieces.append(details.age);
    return pieces.join(QStringLiteral(" · "));
}

QString accessibilityDescription(
    const Details& details,
    const QString& changed,
    const PullRequest& pullRequest,
    const PullRequestDetails* known)
{
    QStringList sentences;
    if (!details.reason.isEmpty()) {
        sentences.append(reasonText(details.reason));
    }
    if (!changed.isEmpty()) {
        sentences.append(changed);
    }
    Details rest = details;
    rest.reason = {};
    sentences.append(detailsText(rest));
    if (known != nullptr) {
        sentences.append(CountWording::reviewLines(*known));
        sentences.append(CountWording::checkLines(pullRequest.checks, *known));
    }
    return sentences.join(QStringLiteral(". "));
}

}  // namespace Tarnwick::RowWording
