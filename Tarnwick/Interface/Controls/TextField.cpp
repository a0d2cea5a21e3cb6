#include "Tarnwick/Interface/Controls/TextField.h"

#include "Tarnwick/Interface/Style/Painting.h"
#include "Tarnwick/Interface/Style/SystemSymbol.h"

#include <QPainter>

namespace Tarnwick {
namespace {

constexpr double radius = 7;
constexpr int padding = 8;
constexpr int symbolSize = 16;
/// The margin that Qt's line edits add to their text.
constexpr int editMargin = 2;

QFont textFont()
{
    return appearance().line(TextStyle::body, TextWeight::regular).font;
}

/// A line edit measures its font on creation. Loading the desktop's font, which nothing else uses,
/// takes milliseconds.
QWidget* withTextFont(QWidget* parent)
{
    parent->setFont(textFont());
    return parent;
}

}  // namespace

TextField::TextField(const QString& symbol, int designHeight, QWidget* parent)
    : QLineEdit(withTextFont(parent))
    , _symbol(symbol)
    , _designHeight(designHeight)
{
    setFrame(false);
    QPalette clear;
    clear.setColor(QPalette::Base, Qt::transparent);
    setPalette(clear);
    connect(&appearance(), &Appearance::changed, this, &TextField::followStyle);
    followStyle();
}

void TextField::setTrailingRoom(int room)
{
    _trailingRoom = room;
    followStyle();
}

QSize TextField::sizeHint() const
{
    return {200, appearance().scaled(_designHeight)};
}

void TextField::followStyle()
{
    setFont(textFont());
    setFixedHeight(sizeHint().height());
    const int start =
        padding + (_symbol.isEmpty() ? 0 : appearance().scaled(symbolSize) + padding) - editMargin;
    setTextMargins(start, 1, padding + _trailingRoom, 1);
}

void TextField::paintEvent(QPaintEvent* event)
{
    const Palette& palette = appearance().palette();
    const QRectF frame(rect());
    QPainter painter(this);
    Painting::fillRounded(painter, frame, radius, palette.field);
    Painting::strokeInside(
        painter,
        frame,
        radius,
        hasFocus() ? 2 : 1,
        hasFocus() ? palette.accent : palette.controlLine);
    if (!_symbol.isEmpty()) {
        const int size = appearance().scaled(symbolSize);
        SystemSymbol{_symbol}.draw(
            painter, QRectF(padding, (height() - size) / 2.0, size, size), palette.textTertiary);
    }
    painter.end();
    QLineEdit::paintEvent(event);
}

}  // namespace Tarnwick
