#include "Tarnwick/Interface/Controls/ToolTip.h"

#include <QFontMetrics>
#include <QToolTip>

#include <algorithm>

namespace Tarnwick {
namespace {

/// In logical pixels. By itself, Qt wraps even short texts into a column.
constexpr int widestLine = 360;

bool fitsWithoutWrapping(const QString& plain)
{
    const QFontMetrics metrics(QToolTip::font());
    const QStringList lines = plain.split(QLatin1Char('\n'));
    return std::ranges::all_of(
        lines, [&](const QString& line) { return metrics.horizontalAdvance(line) <= widestLine; });
}

}  // namespace

QString toolTipMarkup(const QString& plain)
{
    if (plain.isEmpty()) {
        return {};
    }
    QString markup = plain.toHtmlEscaped();
    markup.replace(QLatin1Char('\n'), QLatin1String("<br/>"));
    return fitsWithoutWrapping(plain)
               ? QStringLiteral("<div style=\"white-space: nowrap\">%1</div>").arg(markup)
               : QStringLiteral("<div>%1</div>").arg(markup);
}

}  // namespace Tarnwick
