#include "Tarnwick/Interface/List/SinceWording.h"

#include <QDateTime>
#include <QLocale>
#include <QStringList>

namespace Tarnwick::SinceWording {
namespace {

using namespace PullRequestKit;

constexpr std::size_t mostChanges = 4;

/// A format for a changed count with placeholders for both values.
using CountForm = QString;

QString change(const Change& change, const CountForm& form)
{
    const auto count = [&](const QString& name) {
        return name
               + form.arg(
                   QString::fromStdString(change.before), QString::fromStdString(change.after));
    };
    switch (change.kind) {
    case ChangeKind::closed:
        return QStringLiteral("closed");
    case ChangeKind::merged:
        return QStringLiteral("merged");
    case ChangeKind::reopened:
        return QStringLiteral("reopened");
    case ChangeKind::madeDraft:
        return QStringLiteral("converted to draft");
    case ChangeKind::madeReady:
        return QStringLiteral("ready for review");
    case ChangeKind::approved:
        return QStringLiteral("approved");
    case ChangeKind::changesRequested:
        return QStringLiteral("changes requested");
    case ChangeKind::commented:
        return QStringLiteral("commented");
    case ChangeKind::reviewsPending:
        return QStringLiteral("reviews pending");
    case ChangeKind::noReviewers:
        return QStringLiteral("no reviewers");
    case ChangeKind::reviews:
        return count(QStringLiteral("reviews "));
    case ChangeKind::conflicts:
        return QStringLiteral("conflicts");
    case ChangeKind::conflictsResolved:
        return QStringLiteral("conflicts resolved");
    case ChangeKind::checks:
        return count(QStringLiteral("checks "));
    case ChangeKind::failedChecks:
        return count(QStringLiteral("failed checks "));
    case ChangeKind::newCommits:
        return QStringLiteral("new commits");
    }
    return {};
}

QString sentence(
    const SinceVisit& since, Date now, const QTimeZone& zone, const CountForm& countForm)
{
    QStringList changes;
    for (const Change& changed : since.changes) {
        if (static_cast<std::size_t>(changes.size()) == mostChanges) {
            changes.append(QStringLiteral("and more"));
            break;
        }
        changes.append(change(changed, countForm));
    }
    const QString when =
        since.visitedAt > now ? QStringLiteral("you looked") : day(since.visitedAt, now, zone);
    return QStringLiteral("Since ") + when + QStringLiteral(": ")
           + changes.join(QStringLiteral(", "));
}

}  // namespace

QString day(Date instant, Date now, const QTimeZone& zone)
{
    const auto local = [&](Date date) {
        return QDateTime::fromSecsSinceEpoch(date.time_since_epoch().count(), zone);
    };
    const QDateTime then = local(instant);
    const QDate today = local(now).date();
    const auto text = [](const auto& value, const char* format) {
        return QLocale::c().toString(value, QString::fromLatin1(format));
    };
    const qint64 days = then.date().daysTo(today);
    if (days == 0) {
        return text(then.time(), "HH:mm");
    }
    if (days == 1) {
        return QStringLiteral("yesterday");
    }
    if (days <= 6) {
        return text(then.date(), "dddd");
    }
    return text(then.date(), then.date().year() == today.year() ? "d MMM" : "d MMM yyyy");
}

QString sentence(const SinceVisit& since, Date now, const QTimeZone& zone)
{
    return sentence(since, now, zone, QStringLiteral("%1 → %2"));
}

QString spokenSentence(const SinceVisit& since, Date now, const QTimeZone& zone)
{
    return sentence(since, now, zone, QStringLiteral("from %1 to %2"));
}

}  // namespace Tarnwick::SinceWording
