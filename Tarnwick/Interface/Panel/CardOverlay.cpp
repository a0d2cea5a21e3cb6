#include "Tarnwick/Interface/Panel/CardOverlay.h"

#include "Tarnwick/Interface/Look/Painting.h"
#include "Tarnwick/Interface/Panel/LeavingPicture.h"
#include "Tarnwick/Interface/Panel/RiseEffect.h"

#include <QEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace Tarnwick {
namespace {

constexpr int padding = 20;
constexpr double radius = 12;
constexpr int leastMargin = 16;

}  // namespace

CardOverlay::CardOverlay(int cardWidth, const Appearance& appearance, QWidget* parent)
    : QWidget(parent)
    , _cardWidth(cardWidth)
    , _appearance(appearance)
    , _rise(new RiseEffect(appearance, this))
{
    setFocusPolicy(Qt::StrongFocus);
    setGraphicsEffect(_rise);
    parent->installEventFilter(this);
    connect(&appearance, &Appearance::changed, this, [this] {
        layOut();
        update();
    });
    hide();
}

QRect CardOverlay::card() const
{
    return _card;
}

void CardOverlay::layOut()
{
    const int cardWidth = std::min(_appearance.scaled(_cardWidth), width() - 2 * leastMargin);
    const int inner = cardWidth - 2 * padding;
    const int height = layOutContent({0, 0}, inner) + 2 * padding;
    _card = QRect((width() - cardWidth) / 2, (this->height() - height) / 2, cardWidth, height);
    layOutContent(_card.topLeft() + QPoint(padding, padding), inner);
    update();
}

void CardOverlay::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = _appearance.palette();
    if (!_rise->isEnabled() && !_isPicturing) {
        painter.fillRect(rect(), palette.scrim);
    }
    Painting::fillRounded(painter, QRectF(_card), radius, palette.surfaceMenu);
    Painting::strokeInside(painter, QRectF(_card), radius, 1, palette.strongLine);
}

void CardOverlay::resizeEvent(QResizeEvent* /*event*/)
{
    layOut();
}

void CardOverlay::showEvent(QShowEvent* /*event*/)
{
    setGeometry(parentWidget()->rect());
    layOut();
    raise();
    _rise->start();
}

void CardOverlay::hideEvent(QHideEvent* /*event*/)
{
    _rise->stop();
    if (parentWidget()->isVisible() && !_appearance.reducedMotion()) {
        leavePicture();
    }
}

void CardOverlay::leavePicture()
{
    const double ratio = devicePixelRatioF();
    QPixmap card((QSizeF(size()) * ratio).toSize());
    card.setDevicePixelRatio(ratio);
    card.fill(Qt::transparent);
    _isPicturing = true;
    render(&card, {}, {}, DrawChildren);
    _isPicturing = false;
    auto* const picture = new LeavingPicture(card, _appearance.palette().scrim, parentWidget());
    picture->show();
}

void CardOverlay::mousePressEvent(QMouseEvent* /*event*/) {}

void CardOverlay::wheelEvent(QWheelEvent* event)
{
    event->accept();
}

bool CardOverlay::focusNextPrevChild(bool next)
{
    QList<QWidget*> stops;
    for (QWidget* const child : findChildren<QWidget*>()) {
        if (child->isVisible() && child->isEnabled()
            && (child->focusPolicy() & Qt::TabFocus) == Qt::TabFocus) {
            stops.append(child);
        }
    }
    if (stops.isEmpty()) {
        setFocus();
        return true;
    }
    const auto current = stops.indexOf(window()->focusWidget());
    const auto count = stops.size();
    const auto step = next ? 1 : count - 1;
    const auto following = current < 0 ? 0 : (current + step) % count;
    stops.at(following)->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
}

bool CardOverlay::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace Tarnwick
