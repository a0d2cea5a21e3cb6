#include "TarnwickDirect/Tray/TrayText.h"

#include <QTimeZone>

namespace TarnwickDirect {

using Tarnwick::MenuState;

namespace {

QString countText(std::size_t count)
{
    const QString text = QStringLiteral("%1 pull request").arg(count);
    return count == 1 ? text : text + QLatin1Char('s');
}

QString timeText(PullRequestKit::Date date, const QDateTime& now, const QLocale& locale)
{
    const QDateTime time =
        QDateTime::fromSecsSinceEpoch(date.time_since_epoch().count(), now.timeZone());
    QString clock = locale.toString(time.time(), QLocale::ShortFormat);
    if (time.date() == now.date()) {
        return clock;
    }
    return QStringLiteral("%1 %2 %3")
        .arg(time.date().day())
        .arg(QLocale::c().monthName(time.date().month(), QLocale::ShortFormat), clock);
}

}  // namespace

QString trayText(
    const MenuState& state,
    std::size_t shownPullRequests,
    std::optional<PullRequestKit::Date> lastRefreshed,
    const QDateTime& now,
    const QLocale& locale)
{
    switch (state.kind) {
    case MenuState::Kind::idle:
    case MenuState::Kind::checkingAuthentication:
    case MenuState::Kind::loading:
        return QStringLiteral("Tarnwick");
    case MenuState::Kind::signedOut:
        return QStringLiteral("Sign in to GitHub");
    case MenuState::Kind::unavailable:
        return state.isServiceOutOfReach ? QString::fromStdString(state.message)
                                         : QStringLiteral("GitHub CLI unavailable");
    case MenuState::Kind::failed:
        return QString::fromStdString(state.message);
    case MenuState::Kind::loaded:
        break;
    }
    QString text = countText(shownPullRequests);
    if (lastRefreshed) {
        text += QStringLiteral(" · Updated ") + timeText(*lastRefreshed, now, locale);
    }
    return text;
}

}  // namespace TarnwickDirect
