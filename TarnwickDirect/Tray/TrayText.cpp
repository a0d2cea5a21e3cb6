#include "TarnwickDirect/Tray/TrayText.h"

#include "Tarnwick/Interface/Panel/PanelWording.h"
#include "TarnwickDirect/Status/ClockText.h"

namespace TarnwickDirect {

using Tarnwick::MenuState;
using Tarnwick::RefreshFailure;

namespace {

const QString programName = QStringLiteral("Tarnwick");

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

QString subject(const TrayStatus& status)
{
    if (status.failure && (!knowsPullRequests(status) || !status.lastRefreshed)) {
        return failureText(*status.failure);
    }
    return status.state.kind == MenuState::Kind::loaded
               ? Tarnwick::PanelWording::count(status.shownPullRequests)
               : programName;
}

}  // namespace

QString trayText(const TrayStatus& status, const QDateTime& now, const QLocale& locale)
{
    QString what = subject(status);
    // Without a list there is no time to show.
    if (!status.lastRefreshed || what == programName) {
        return what;
    }
    const QString since =
        status.isTrouble ? QStringLiteral(" · Not updated since ") : QStringLiteral(" · Updated ");
    return what + since + clockText(*status.lastRefreshed, now, locale);
}

}  // namespace TarnwickDirect
