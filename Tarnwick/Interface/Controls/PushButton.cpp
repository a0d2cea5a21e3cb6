#include "Tarnwick/Interface/Controls/PushButton.h"

#include "Tarnwick/Interface/Style/ApplicationStyle.h"
#include "Tarnwick/Interface/Style/Painting.h"
#include "Tarnwick/Interface/Style/SystemSymbol.h"

#include <QAccessible>
#include <QFocusEvent>
#include <QPainter>

#include <cmath>
#include <utility>

namespace Tarnwick {
namespace {

class FocusRing final : public QFocusFrame {
public:
    FocusRing(QWidget* parent, double radius)
        : QFocusFrame(parent)
        , _radius(radius + ApplicationStyle::ringRoom)
    {}

protected:
    void paintEvent(QPaintEvent* /*event*/) override
    {
        constexpr int width = 2;
        QPainter painter(this);
        Painting::strokeInside(
            painter, QRectF(rect()), _radius, width, appearance().palette().accent);
    }

private:
    double _radius;
};

}  // namespace

PushButton::PushButton(const QString& text, Kind kind, QWidget* parent, Size size)
    : QPushButton(parent)
    , _kind(kind)
    , _size(size)
    , _hover(*this)
{
    // Set last: Qt 6.8 then creates the accessible interface and caches it.
    setText(text);
    setAccessibleName(text);
    setAutoDefault(true);
    setCursor(kind == Kind::link ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

PushButton::~PushButton()
{
    delete _ring;
}

void PushButton::setSymbol(const QString& symbol)
{
    _symbol = symbol;
    updateGeometry();
}

void PushButton::setOpen(bool isOpen)
{
    if (std::exchange(_isOpen, isOpen) != isOpen && _isToggle) {
        QAccessible::State changed;
        changed.pressed = true;
        QAccessibleStateChangeEvent event(this, changed);
        QAccessible::updateAccessibility(&event);
    }
    update();
}

LineStyle PushButton::style() const
{
    switch (_kind) {
    case Kind::link:
        return appearance().line(TextStyle::footnote, TextWeight::medium);
    case Kind::chip:
        return appearance().line(TextStyle::caption, TextWeight::medium);
    case Kind::plain:
    case Kind::primary:
    case Kind::quiet:
        break;
    }
    return appearance().line(
        isSmall() ? TextStyle::subheadline : TextStyle::body, TextWeight::medium);
}

int PushButton::padding() const
{
    switch (_kind) {
    case Kind::link:
        return 0;
    case Kind::chip:
        return 8;
    case Kind::plain:
    case Kind::primary:
    case Kind::quiet:
        break;
    }
    return isSmall() ? 10 : 14;
}

double PushButton::radius() const
{
    if (_kind == Kind::link) {
        return 4;
    }
    return isSmall() || _kind == Kind::chip ? 6 : 8;
}

QSize PushButton::sizeHint() const
{
    const int smallHeight = _kind == Kind::plain || _kind == Kind::primary ? 26 : 20;
    const bool isLow = isSmall() || _kind == Kind::chip;
    const int height =
        _kind == Kind::link ? style().height : appearance().scaled(isLow ? smallHeight : 32);
    if (!_symbol.isEmpty()) {
        return {height, height};
    }
    const int textWidth = static_cast<int>(std::ceil(Painting::width(text(), style())));
    return {textWidth + 2 * padding(), height};
}

void PushButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    paintFace(painter);
}

void PushButton::paintQuietFill(QPainter& painter)
{
    if (filled() > 0) {
        QColor fill = appearance().palette().chip;
        fill.setAlphaF(static_cast<float>(filled()));
        Painting::fillRounded(painter, QRectF(rect()), radius(), fill);
    }
}

void PushButton::paintFrame(QPainter& painter)
{
    const Palette& palette = appearance().palette();
    const bool isPrimary = _kind == Kind::primary && isEnabled();
    const double pressed = isDown() ? 0.16 : _hover.value() * 0.08;
    const QColor base = isPrimary ? palette.accent : palette.button;
    const QColor towards = isPrimary ? palette.onAccent : palette.textPrimary;
    Painting::fillRounded(painter, QRectF(rect()), radius(), mixed(base, towards, pressed));
    if (!isPrimary) {
        QColor line = palette.buttonLine;
        line.setAlphaF(isEnabled() ? 1.0F : 0.5F);
        Painting::strokeInside(painter, QRectF(rect()), radius(), 1, line);
    }
}

QColor PushButton::textColor() const
{
    const Palette& palette = appearance().palette();
    if (!isEnabled()) {
        return palette.textTertiary;
    }
    switch (_kind) {
    case Kind::plain:
        return palette.textPrimary;
    case Kind::primary:
        return palette.onAccent;
    case Kind::link:
        return mixed(palette.textLink, palette.textPrimary, _hover.value());
    case Kind::chip:
    case Kind::quiet:
        return mixed(palette.textSecondary, palette.textPrimary, filled());
    }
    return {};
}

void PushButton::paintFace(QPainter& painter)
{
    const Palette& palette = appearance().palette();
    const QRectF face(rect());
    const bool isFramed = _kind == Kind::plain || _kind == Kind::primary;
    if (isFramed) {
        paintFrame(painter);
    } else if (_kind == Kind::quiet) {
        paintQuietFill(painter);
    } else if (_kind == Kind::chip) {
        Painting::fillRounded(
            painter, face, radius(), mixed(palette.chip, palette.menuHighlight, filled()));
        if (appearance().higherContrast()) {
            Painting::strokeInside(painter, face, radius(), 1, palette.controlLine);
        }
    }
    if (!_symbol.isEmpty()) {
        const int designSize = _kind != Kind::quiet ? 16 : isSmall() ? 12 : 20;
        const double size = appearance().scaled(designSize);
        const QPointF corner = face.center() - QPointF(size / 2, size / 2);
        SystemSymbol{_symbol}.draw(painter, QRectF(corner, QSizeF(size, size)), textColor());
        return;
    }
    const LineStyle line = style();
    const QRectF textLine(
        isFramed ? 0 : padding(), (face.height() - line.height) / 2, face.width(), line.height);
    const Qt::AlignmentFlag alignment = isFramed ? Qt::AlignHCenter : Qt::AlignLeft;
    Painting::text(painter, textLine, text(), line, textColor(), alignment);
}

void PushButton::enterEvent(QEnterEvent* event)
{
    _hover.setOn(isEnabled());
    QPushButton::enterEvent(event);
}

void PushButton::leaveEvent(QEvent* event)
{
    _hover.setOn(false);
    QPushButton::leaveEvent(event);
}

void PushButton::focusInEvent(QFocusEvent* event)
{
    QPushButton::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason
        || reason == Qt::ShortcutFocusReason) {
        delete _ring;
        _ring = new FocusRing(this, radius());
        _ring->setWidget(this);
    }
}

void PushButton::focusOutEvent(QFocusEvent* event)
{
    delete _ring;
    QPushButton::focusOutEvent(event);
}

void PushButton::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        _hover.setOn(false);
    }
    QPushButton::changeEvent(event);
}

}  // namespace Tarnwick
