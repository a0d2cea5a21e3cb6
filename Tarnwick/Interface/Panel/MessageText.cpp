#include "Tarnwick/Interface/Panel/MessageText.h"

#include "Tarnwick/Interface/Style/Painting.h"

#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace Tarnwick {
namespace {

constexpr int handleWidth = 4;
constexpr int handleGap = 6;

}  // namespace

MessageText::Setting MessageText::cardTitle()
{
    return {
        .style = TextStyle::headline,
        .weight = TextWeight::bold,
        .alignment = Qt::AlignLeft,
        .mostLines = 2,
        .color = &Palette::textPrimary};
}

MessageText::MessageText(const Setting& setting, QWidget* parent)
    : QLabel(parent)
    , _setting(setting)
{
    setTextFormat(Qt::PlainText);
}

WrappedText MessageText::laidOut() const
{
    return {text(), style(), static_cast<double>(textWidth())};
}

void MessageText::fit(int width, bool isBalanced, int mostHeight)
{
    const int lines = WrappedText(text(), style(), width).lineCount();
    const int most = std::clamp(mostHeight / style().height, 1, _setting.mostLines);
    _scrolls = lines > most;
    const double used = isBalanced && !_scrolls ? balancedWidth(text(), style(), width) : width;
    setFixedSize(static_cast<int>(std::ceil(used)), std::min(lines, most) * style().height);
    _offset = 0;
    setFocusPolicy(_scrolls ? Qt::TabFocus : Qt::NoFocus);
}

/// Leaves space for the scroll handle.
int MessageText::textWidth() const
{
    return _scrolls ? width() - handleWidth - handleGap : width();
}

void MessageText::scrollBy(int pixels)
{
    const int most = std::max(0, laidOut().height() - height());
    _offset = std::clamp(_offset + pixels, 0, most);
    update();
}

void MessageText::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = appearance().palette();
    const WrappedText lines = laidOut();
    // Lists, such as those of gh, are aligned left.
    const bool isList = text().contains(QLatin1Char('\n'));
    lines.draw(
        painter,
        QPointF(0, -_offset),
        textWidth(),
        palette.*_setting.color,
        isList ? Qt::AlignLeft : _setting.alignment);
    if (lines.height() > height()) {
        const double length =
            std::max(16.0, static_cast<double>(height()) * height() / lines.height());
        const double top = (height() - length) * _offset / std::max(1, lines.height() - height());
        Painting::fillRounded(
            painter,
            QRectF(width() - handleWidth, top, handleWidth, length),
            handleWidth / 2.0,
            hasFocus() ? palette.accent : palette.controlLine);
    }
}

void MessageText::wheelEvent(QWheelEvent* event)
{
    const int pixels =
        event->pixelDelta().isNull() ? event->angleDelta().y() / 3 : event->pixelDelta().y();
    scrollBy(-pixels);
    event->accept();
}

void MessageText::keyPressEvent(QKeyEvent* event)
{
    const int line = style().height;
    switch (event->key()) {
    case Qt::Key_Up:
        scrollBy(-line);
        break;
    case Qt::Key_Down:
        scrollBy(line);
        break;
    case Qt::Key_PageUp:
        scrollBy(-height());
        break;
    case Qt::Key_PageDown:
        scrollBy(height());
        break;
    default:
        QLabel::keyPressEvent(event);
    }
}

}  // namespace Tarnwick
