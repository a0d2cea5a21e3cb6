#include "Tarnwick/Interface/Controls/OverlayScrollBar.h"

#include "Tarnwick/Interface/Style/Painting.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>

namespace Tarnwick {
namespace {

constexpr int gutter = 12;
constexpr int endMargin = 2;
constexpr int restingWidth = 4;
constexpr int grownWidth = 8;
constexpr int shortest = 32;

}  // namespace

OverlayScrollBar::OverlayScrollBar(QAbstractScrollArea& area)
    : QWidget(&area)
    , _area(area)
    , _growth(*this)
{
    setObjectName(QStringLiteral("scrollBar"));
    setCursor(Qt::ArrowCursor);
    area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.installEventFilter(this);
    const QScrollBar* const values = area.verticalScrollBar();
    connect(values, &QScrollBar::rangeChanged, this, &OverlayScrollBar::follow);
    connect(values, &QScrollBar::valueChanged, this, [this] { update(); });
    follow();
}

void OverlayScrollBar::setInsets(int top, int bottom)
{
    if (_topInset != top || _bottomInset != bottom) {
        _topInset = top;
        _bottomInset = bottom;
        update();
    }
}

void OverlayScrollBar::follow()
{
    setGeometry(_area.width() - gutter, 0, gutter, _area.height());
    const QScrollBar* const values = _area.verticalScrollBar();
    setVisible(values->maximum() > values->minimum());
    raise();
    update();
}

int OverlayScrollBar::trackLength() const
{
    return std::max(0, height() - _topInset - _bottomInset);
}

QRect OverlayScrollBar::handle() const
{
    const QScrollBar* const values = _area.verticalScrollBar();
    const int range = std::max(1, values->maximum() - values->minimum());
    const int page = values->pageStep();
    const int track = trackLength();
    const auto share =
        static_cast<int>(static_cast<qint64>(track) * page / std::max(1, page + range));
    const int length = std::min(track, std::max(shortest, share));
    const auto offset = static_cast<int>(
        static_cast<qint64>(track - length) * (values->value() - values->minimum()) / range);
    const bool isGrown = _growth.isOn() || _grip;
    const int width = isGrown ? grownWidth : restingWidth;
    return {gutter - endMargin - width, _topInset + offset, width, length};
}

bool OverlayScrollBar::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == &_area && event->type() == QEvent::Resize) {
        follow();
    }
    return QWidget::eventFilter(watched, event);
}

void OverlayScrollBar::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = appearance().palette();
    const double growth = _grip ? 1 : _growth.value();
    QRectF shown(handle());
    shown.setLeft(shown.right() - restingWidth - growth * (grownWidth - restingWidth));
    Painting::fillRounded(
        painter,
        shown,
        shown.width() / 2,
        mixed(palette.controlLine, palette.textTertiary, growth));
}

void OverlayScrollBar::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const QRect held = handle();
    const int y = event->position().toPoint().y();
    if (y >= held.top() && y <= held.bottom()) {
        _grip = y - held.top();
        update();
        return;
    }
    _area.verticalScrollBar()->triggerAction(
        y < held.top() ? QAbstractSlider::SliderPageStepSub : QAbstractSlider::SliderPageStepAdd);
}

void OverlayScrollBar::mouseMoveEvent(QMouseEvent* event)
{
    if (!_grip) {
        return;
    }
    QScrollBar* const values = _area.verticalScrollBar();
    const int room = std::max(1, trackLength() - handle().height());
    const int offset = event->position().toPoint().y() - *_grip - _topInset;
    const qint64 range = values->maximum() - values->minimum();
    values->setValue(values->minimum() + static_cast<int>(offset * range / room));
}

void OverlayScrollBar::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        _grip.reset();
        update();
    }
}

void OverlayScrollBar::wheelEvent(QWheelEvent* event)
{
    QCoreApplication::sendEvent(_area.verticalScrollBar(), event);
}

}  // namespace Tarnwick
