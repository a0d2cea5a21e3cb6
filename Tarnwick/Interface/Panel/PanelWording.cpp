#include "Tarnwick/Interface/Panel/PanelWording.h"

#include <QDateTime>
#include <QLocale>
#include <QRegularExpression>
#include <QStringList>

namespace Tarnwick::PanelWording {

using namespace std::chrono;
using PullRequestKit::Date;

namespace {

QString ago(std::int64_t number, const QString& unit)
{
    const QString plural = number == 1 ? QString() : QStringLiteral("s");
    return QStringLiteral("Updated %1 %2%3 ago").arg(number).arg(unit, plural);
}

const QLocale& english()
{
    static const QLocale locale(QLocale::English, QLocale::UnitedStates);
    return locale;
}

/// The clock was set back, so the age is unknown.
bool isToCome(seconds age)
{
    return age < -minutes{1};
}

QString onItsDay(Date refreshed)
{
    const QDateTime local = QDateTime::fromSecsSinceEpoch(refreshed.time_since_epoch().count());
    return QStringLiteral("Updated ") + english().toString(local.date(), QStringLiteral("d MMM"));
}

}  // namespace

QString count(std::size_t pullRequests)
{
    const QString plural = pullRequests == 1 ? QString() : QStringLiteral("s");
    return QStringLiteral("%1 pull request%2").arg(pullRequests).arg(plural);
}

QString hiddenChip(const HiddenCounts& hidden, bool areShown)
{
    const QString text = areShown ? QStringLiteral("Hide %1") : QStringLiteral("%1 hidden");
    return text.arg(hidden.total());
}

QString hiddenChipName(const HiddenCounts& hidden, bool areShown)
{
    const QString text = areShown ? QStringLiteral("Hide %1 pull request%2")
                                  : QStringLiteral("Show %1 hidden pull request%2");
    const QString plural = hidden.total() == 1 ? QString() : QStringLiteral("s");
    return text.arg(hidden.total()).arg(plural);
}

QString hiddenHelp(const HiddenCounts& hidden)
{
    QStringList kinds;
    if (hidden.filters > 0) {
        kinds.append(QStringLiteral("%1 by filters").arg(hidden.filters));
    }
    if (hidden.muted > 0) {
        kinds.append(QStringLiteral("%1 muted").arg(hidden.muted));
    }
    return kinds.join(QStringLiteral(", "));
}

QString updated(Date refreshed, Date now)
{
    const seconds age = now - refreshed;
    if (isToCome(age)) {
        return onItsDay(refreshed);
    }
    if (age < minutes{1}) {
        return QStringLiteral("Updated just now");
    }
    if (age < hours{1}) {
        return ago(duration_cast<minutes>(age).count(), QStringLiteral("minute"));
    }
    if (age < days{1}) {
        return ago(duration_cast<hours>(age).count(), QStringLiteral("hour"));
    }
    return onItsDay(refreshed);
}

std::optional<seconds> untilUpdatedChanges(Date refreshed, Date now)
{
    const seconds elapsed = now - refreshed;
    if (isToCome(elapsed)) {
        return std::nullopt;
    }
    const seconds age = std::max(elapsed, seconds{0});
    if (age < hours{1}) {
        return minutes{1} - age % minutes{1};
    }
    if (age < days{1}) {
        return hours{1} - age % hours{1};
    }
    return std::nullopt;
}

QString truncated(std::int64_t found, std::int64_t listed)
{
    return QStringLiteral("GitHub found %1 pull requests; %2 are listed.")
        .arg(
            english().toString(static_cast<qlonglong>(found)),
            english().toString(static_cast<qlonglong>(listed)));
}

QString resting(const PullRequestKit::Quota& quota)
{
    const QDateTime until = QDateTime::fromSecsSinceEpoch(quota.resetAt.time_since_epoch().count());
    return QStringLiteral("GitHub quota %1 of %2 until %3; polling rests.")
        .arg(
            english().toString(static_cast<qlonglong>(quota.remaining)),
            english().toString(static_cast<qlonglong>(quota.limit)),
            until.toString(QStringLiteral("HH:mm")));
}

QString paragraph(const QString& text)
{
    if (!text.contains(QLatin1Char('\n'))) {
        return text;
    }
    static const QRegularExpression mark(QStringLiteral("(^|: )[X✓✗!*•-] +"));
    static const QRegularExpression indentation(QStringLiteral("^\\s*"));
    QString result;
    qsizetype before = 0;
    for (const QString& line : text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const qsizetype indent = indentation.match(line).capturedLength();
        const QString piece = line.trimmed().replace(mark, QStringLiteral("\\1"));
        if (piece.isEmpty()) {
            continue;
        }
        if (!result.isEmpty()) {
            const bool isEnded = QStringLiteral(".:;,!?…").contains(result.back());
            // An indented line belongs to the one above it.
            const QChar end = indent > before ? QLatin1Char(':') : QLatin1Char('.');
            result += isEnded ? QString() : QString(end);
            result += QLatin1Char(' ');
        }
        result += piece;
        before = indent;
    }
    return result;
}

}  // namespace Tarnwick::PanelWording
