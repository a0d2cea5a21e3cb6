#include "Tarnwick/Interface/List/TitleLayout.h"

#include "Tarnwick/Interface/List/FindPlates.h"
#include "Tarnwick/Interface/Style/Painting.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QTextOption>

#include <algorithm>
#include <cmath>

namespace Tarnwick {
namespace {

/// Wider than any line, so that an elided line does not break again.
constexpr double endless = 1 << 20;

QTextOption optionFor(bool isRightToLeft)
{
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(isRightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    // Left-aligned, because `draw` positions the lines itself.
    option.setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    return option;
}

}  // namespace

TitleLayout::TitleLayout(const QString& title, const LineStyle& style, int width)
    : _style(style)
    , _title(title)
    , _layout(title, style.font)
    , _width(width)
    , _isRightToLeft(title.isRightToLeft())
{
    _layout.setCacheEnabled(true);
    _layout.setTextOption(optionFor(_isRightToLeft));
    _layout.beginLayout();
    QTextLine line = _layout.createLine();
    while (line.isValid()) {
        line.setLineWidth(width);
        if (_layout.lineCount() == mostLines) {
            break;
        }
        line = _layout.createLine();
    }
    _layout.endLayout();
    if (_layout.lineCount() == mostLines) {
        elideLastLine(title, width);
    }
}

void TitleLayout::elideLastLine(const QString& title, double width)
{
    const QTextLine last = _layout.lineAt(mostLines - 1);
    const auto start = last.textStart();
    if (start + last.textLength() >= title.size()) {
        return;
    }
    const QFontMetricsF metrics(_style.font);
    QString rest = metrics.elidedText(title.mid(start), Qt::ElideRight, width);
    while (rest.size() > 1 && rest[rest.size() - 2].isSpace()) {
        rest.remove(rest.size() - 2, 1);
    }
    _isElided = true;
    _layout.setText(title.left(start) + rest);
    _layout.beginLayout();
    // Lays out the elided text with the same break. A number of characters would not determine it,
    // because ligatures count as one.
    for (const double most : {width, endless}) {
        // Without space for the ellipsis there is no second line.
        if (QTextLine line = _layout.createLine(); line.isValid()) {
            line.setLineWidth(most);
        }
    }
    _layout.endLayout();
}

QString TitleLayout::lineText(int number) const
{
    const QTextLine line = _layout.lineAt(number);
    return _layout.text().mid(line.textStart(), line.textLength());
}

QPointF TitleLayout::lineOrigin(const QPainter& painter, const QPointF& topLeft, int line) const
{
    const double free = _isRightToLeft ? _width - _layout.lineAt(line).naturalTextWidth() : 0;
    const double baseline = topLeft.y() + line * _style.height + _style.baseline;
    return Painting::aligned(painter, QRectF(topLeft.x() + free, baseline, 0, 0)).topLeft();
}

void TitleLayout::drawLine(QPainter& painter, const QPointF& origin, int line) const
{
    const QTextLine text = _layout.lineAt(line);
    text.draw(&painter, origin - QPointF(0, text.ascent()) - text.position());
}

void TitleLayout::draw(QPainter& painter, const QPointF& topLeft, const QColor& color) const
{
    painter.setPen(color);
    for (int line = 0; line < lineCount(); ++line) {
        drawLine(painter, lineOrigin(painter, topLeft, line), line);
    }
}

void TitleLayout::drawMarks(
    QPainter& painter,
    const QPointF& topLeft,
    const std::vector<TextRange>& ranges,
    const Palette& palette) const
{
    for (int line = 0; line < lineCount(); ++line) {
        const QPointF origin = lineOrigin(painter, topLeft, line);
        std::vector<QRectF> boxes = boxesOf(line, ranges);
        for (QRectF& box : boxes) {
            box.translate(origin.x(), topLeft.y());
        }
        paintFindPlates(painter, boxes, palette, [&] { drawLine(painter, origin, line); });
    }
}

std::vector<QRectF> TitleLayout::boxesOf(int line, const std::vector<TextRange>& ranges) const
{
    const QTextLine text = _layout.lineAt(line);
    const TextRange inLine{text.textStart(), text.textStart() + text.textLength()};
    std::vector<QRectF> boxes;
    for (const TextRange& range :
         rangesWithin(rangesShown(ranges, _title, _layout.text()), inLine)) {
        for (auto place = range.start; place < range.end; ++place) {
            const int letter = static_cast<int>(inLine.start + place);
            const double from = text.cursorToX(letter, QTextLine::Leading) - text.x();
            const double to = text.cursorToX(letter, QTextLine::Trailing) - text.x();
            boxes.emplace_back(
                std::min(from, to), line * _style.height, std::abs(to - from), _style.height);
        }
    }
    std::ranges::sort(boxes, {}, &QRectF::left);
    return boxes;
}

QString titleText(const std::string& title)
{
    QString text = QString::fromStdString(title);
    for (QChar& character : text) {
        const bool breaks = character == QChar::LineSeparator
                            || character == QChar::ParagraphSeparator
                            || character.category() == QChar::Other_Control;
        if (breaks) {
            character = QLatin1Char(' ');
        }
    }
    return text;
}

}  // namespace Tarnwick
