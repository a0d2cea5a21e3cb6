#include "Tarnwick/Interface/Controls/TextField.h"

#include "Tarnwick/Interface/Look/Painting.h"
#include "Tarnwick/Interface/Look/SystemSymbol.h"

#include <QEvent>
#include <QPainter>

namespace Tarnwick {
namespace {

constexpr double radius = 7;
constexpr int padding = 8;
constexpr int symbolSize = 16;
/// What a line edit keeps free at both ends of its text on its own.
constexpr int editMargin = 2;

QFont textFont(const Appearance& appearance)
{
    return appearance.line(TextStyle::body, TextWeight::regular).font;
}

/// A line edit measures its font at once, and the desktop's own, which nothing else here is written
/// in, takes milliseconds to load.
QLineEdit* editIn(QWidget* field, const Appearance& appearance)
{
    field->setFont(textFont(appearance));
    return new QLineEdit(field);
}

}  // namespace

TextField::TextField(const QString& symbol, const Appearance& appearance, QWidget* parent)
    : QWidget(parent)
    , _appearance(appearance)
    , _symbol(symbol)
    , _edit(editIn(this, appearance))
{
    _edit->setFrame(false);
    _edit->installEventFilter(this);
    setFocusProxy(_edit);
    setCursor(Qt::IBeamCursor);
    adopt();
    connect(&appearance, &Appearance::changed, this, &TextField::adopt);
}

void TextField::setTrailingRoom(int room)
{
    _trailingRoom = room;
    layOut();
}

void TextField::setDesignHeight(int height)
{
    _designHeight = height;
    updateGeometry();
}

QSize TextField::sizeHint() const
{
    return {200, _appearance.scaled(_designHeight)};
}

bool TextField::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == _edit
        && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)) {
        update();
    }
    return QWidget::eventFilter(watched, event);
}

void TextField::adopt()
{
    const Palette& colours = _appearance.palette();
    QPalette palette = _edit->palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    palette.setColor(QPalette::Text, colours.textPrimary);
    palette.setColor(QPalette::PlaceholderText, colours.textTertiary);
    palette.setColor(QPalette::Highlight, colours.accent);
    palette.setColor(QPalette::HighlightedText, colours.onAccent);
    palette.setColor(QPalette::Disabled, QPalette::Text, colours.textTertiary);
    _edit->setPalette(palette);
    _edit->setFont(textFont(_appearance));
    updateGeometry();
    layOut();
    update();
}

void TextField::layOut()
{
    const int start =
        padding + (_symbol.isEmpty() ? 0 : _appearance.scaled(symbolSize) + padding) - editMargin;
    _edit->setGeometry(start, 1, width() - start - padding - _trailingRoom, height() - 2);
}

void TextField::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = _appearance.palette();
    const QRectF frame(rect());
    const bool focused = _edit->hasFocus();
    Painting::fillRounded(painter, frame, radius, palette.field);
    Painting::strokeInside(
        painter, frame, radius, focused ? 2 : 1, focused ? palette.accent : palette.controlLine);
    if (!_symbol.isEmpty()) {
        const int size = _appearance.scaled(symbolSize);
        SystemSymbol{_symbol}.draw(
            painter, QRectF(padding, (height() - size) / 2.0, size, size), palette.textTertiary);
    }
}

void TextField::resizeEvent(QResizeEvent* /*event*/)
{
    layOut();
}

void TextField::mousePressEvent(QMouseEvent* /*event*/)
{
    _edit->setFocus(Qt::MouseFocusReason);
}

}  // namespace Tarnwick
