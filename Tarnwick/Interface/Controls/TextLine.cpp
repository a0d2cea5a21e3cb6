#include "Tarnwick/Interface/Controls/TextLine.h"

#include "Tarnwick/Interface/Style/Painting.h"

#include <QFontMetricsF>

#include <cmath>

namespace Tarnwick {

TextLine::TextLine(const QString& text, Setting setting, QWidget* parent)
    : QLabel(parent)
    , _setting(setting)
{
    setTextFormat(Qt::PlainText);
    setText(text);
}

QSize TextLine::sizeHint() const
{
    const LineStyle style = lineStyle();
    return {static_cast<int>(std::ceil(Painting::width(text(), style))), style.height};
}

void TextLine::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const LineStyle style = lineStyle();
    const QRectF line(0, (height() - style.height) / 2.0, width(), style.height);
    // Half a pixel makes up for rounded widths.
    const QString shown =
        QFontMetricsF(style.font).elidedText(text(), Qt::ElideRight, width() + 0.5);
    Painting::text(
        painter, line, shown, style, appearance().palette().*_setting.color, _setting.alignment);
}

}  // namespace Tarnwick
