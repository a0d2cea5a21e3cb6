#include "TarnwickDirect/Status/StatusText.h"

#include "TarnwickDirect/Status/ClockText.h"

namespace TarnwickDirect {
namespace {

QString subject(const Status& status)
{
    if (status.waitingOnYou > 0) {
        return status.waitingOnYou == 1 ? QStringLiteral("1 waits on you")
                                        : QStringLiteral("%1 wait on you").arg(status.waitingOnYou);
    }
    if (status.readyToMerge > 0) {
        return QStringLiteral("%1 ready to merge").arg(status.readyToMerge);
    }
    return status.listed == 1 ? QStringLiteral("1 pull request")
                              : QStringLiteral("%1 pull requests").arg(status.listed);
}

}  // namespace

QString statusText(const Status& status, const QDateTime& now, const QLocale& locale)
{
    if (!status.lastRefreshed) {
        return QStringLiteral("Not updated yet");
    }
    const QString link =
        status.isStale ? QStringLiteral(" · Not updated since ") : QStringLiteral(" · ");
    return subject(status) + link + clockText(*status.lastRefreshed, now, locale);
}

}  // namespace TarnwickDirect
