#include "TarnwickDirect/Status/ClockText.h"

#include <QTimeZone>

namespace TarnwickDirect {
namespace {

/// The locale's short time format. Some locales, such as "C", include seconds, which are removed
/// with their separator.
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

}  // namespace

QString clockText(PullRequestKit::Date date, const QDateTime& now, const QLocale& locale)
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

}  // namespace TarnwickDirect
