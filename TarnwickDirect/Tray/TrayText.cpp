#include "TarnwickDirect/Tray/TrayText.h"

#include <QTimeZone>

namespace TarnwickDirect {

using Tarnwick::MenuState;
using Tarnwick::RefreshFailure;

namespace {

const QString programName = QStringLiteral("Tarnwick");

QString countText(std::size_t count)
{
    const QString text = QStringLiteral("%1 pull request").arg(count);
    return count == 1 ? text : text + QLatin1Char('s');
}

/// Some locales, such as "C", write seconds in the short form too. They go with what stands before
/// them.
QString clockFormat(const QLocale& locale)
{
    QString format;
    bool isQuoted = false;
    for (const QChar character : locale.timeFormat(QLocale::ShortFormat)) {
        isQuoted = isQuoted != (character == u'\'');
        if (isQuoted || (character != u's' && character != u'z')) {
            format += character;
        } else if (format.endsWith(u':') || format.endsWith(u'.')) {
            format.chop(1);
        }
    }
    return format;
}

QString timeText(PullRequestKit::Date date, const QDateTime& now, const QLocale& locale)
{
    const QDateTime time =
        QDateTime::fromSecsSinceEpoch(date.time_since_epoch().count(), now.timeZone());
    QString clock = locale.toString(time.time(), clockFormat(locale));
    if (time.date() == now.date()) {
        return clock;
    }
    return QStringLiteral("%1 %2 %3")
        .arg(time.date().day())
        .arg(QLocale::c().monthName(time.date().month(), QLocale::ShortFormat), clock);
}

QString failureText(RefreshFailure failure)
{
    switch (failure) {
    case RefreshFailure::signedOut:
        return QStringLiteral("Sign in to GitHub");
    case RefreshFailure::ghUnavailable:
        return QStringLiteral("GitHub CLI unavailable");
    case RefreshFailure::requestFailed:
        break;
    }
    return QStringLiteral("Pull requests could not be loaded");
}

/// What the tooltip begins with.
QString subject(const TrayStatus& status)
{
    if (status.failure && (!knowsPullRequests(status) || !status.lastRefreshed)) {
        return failureText(*status.failure);
    }
    return status.state.kind == MenuState::Kind::loaded ? countText(status.shownPullRequests)
                                                        : programName;
}

}  // namespace

QString trayText(const TrayStatus& status, const QDateTime& now, const QLocale& locale)
{
    const QString what = subject(status);
    // Without a list there is nothing that a time would belong to.
    if (!status.lastRefreshed || what == programName) {
        return what;
    }
    const QString since =
        status.isTrouble ? QStringLiteral(" · Not updated since ") : QStringLiteral(" · Updated ");
    return what + since + timeText(*status.lastRefreshed, now, locale);
}

}  // namespace TarnwickDirect
