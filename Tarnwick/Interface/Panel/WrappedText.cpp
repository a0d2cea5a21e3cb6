#include "Tarnwick/Interface/Panel/WrappedText.h"

#include "Tarnwick/Interface/Style/Painting.h"

#include <QFontMetricsF>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace Tarnwick {
namespace {

/// Keeps a path in one piece if it fits into a line.
constexpr QChar wordJoiner(0x2060);

QStringList wrapped(QString paragraph, const QFont& font, double width)
{
    paragraph.replace(QLatin1Char('/'), QStringLiteral("/") + wordJoiner);
    QTextLayout layout(paragraph, font);
    layout.setTextOption([] {
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        return option;
    }());
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines.append(paragraph.mid(line.textStart(), line.textLength()).remove(wordJoiner));
    }
    layout.endLayout();
    if (!lines.isEmpty()) {
        // Distinguishes the end of a paragraph from a break within a word when lines are joined.
        lines.last().append(QLatin1Char(' '));
    }
    return lines;
}

}  // namespace

WrappedText::WrappedText(const QString& text, const LineStyle& style, double width, int mostLines)
    : _style(style)
{
    for (const QString& paragraph : text.split(QLatin1Char('\n'))) {
        _lines += wrapped(paragraph, style.font, width);
    }
    if (_lines.size() > mostLines) {
        _isElided = true;
        QString rest = _lines.mid(mostLines - 1).join(QString());
        while (rest.endsWith(QLatin1Char(' '))) {
            rest.chop(1);
        }
        _lines = _lines.mid(0, mostLines - 1);
        _lines.append(QFontMetricsF(style.font)
                          .elidedText(rest + QStringLiteral(" …"), Qt::ElideRight, width));
    }
    for (QString& line : _lines) {
        while (line.endsWith(QLatin1Char(' '))) {
            line.chop(1);
        }
    }
}

void WrappedText::draw(
    QPainter& painter,
    const QPointF& topLeft,
    double width,
    const QColor& color,
    Qt::AlignmentFlag alignment) const
{
    QRectF line(topLeft, QSizeF(width, _style.height));
    for (const QString& text : _lines) {
        Painting::text(painter, line, text, _style, color, alignment);
        line.translate(0, _style.height);
    }
}

double balancedWidth(const QString& text, const LineStyle& style, double width)
{
    const int lines = WrappedText(text, style, width).lineCount();
    double tooNarrow = 0;
    double enough = width;
    while (enough - tooNarrow > 1) {
        const double middle = (tooNarrow + enough) / 2;
        (WrappedText(text, style, middle).lineCount() > lines ? tooNarrow : enough) = middle;
    }
    return std::ceil(enough);
}

}  // namespace Tarnwick
