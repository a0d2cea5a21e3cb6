#include "Tarnwick/Interface/Panel/CardOverlay.h"

#include "Tarnwick/Interface/Panel/LeavingPicture.h"
#include "Tarnwick/Interface/Panel/RiseEffect.h"
#include "Tarnwick/Interface/Style/Painting.h"

#include <QEvent>
#include <QGridLayout>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>

namespace Tarnwick {
namespace {

constexpr int padding = 20;
constexpr double radius = 12;
constexpr int leastMargin = 16;

}  // namespace

CardOverlay::CardOverlay(int cardWidth, QWidget* parent)
    : QWidget(parent)
    , _cardWidth(cardWidth)
    , _rise(new RiseEffect(this))
    , _width(new QSpacerItem(0, 0))
    , _content(new QVBoxLayout)
{
    _content->setContentsMargins(padding, padding, padding, padding);
    _content->setSpacing(0);
    _content->addItem(_width);
    auto* const middle = new QGridLayout(this);
    middle->setContentsMargins(0, 0, 0, 0);
    middle->addLayout(_content, 1, 1);
    for (const int side : {0, 2}) {
        middle->setRowStretch(side, 1);
        middle->setColumnStretch(side, 1);
    }
    setFocusPolicy(Qt::StrongFocus);
    setGraphicsEffect(_rise);
    parent->installEventFilter(this);
    connect(&appearance(), &Appearance::changed, this, &CardOverlay::layOut);
    hide();
}

void CardOverlay::layOut()
{
    const int cardWidth = std::min(appearance().scaled(_cardWidth), width() - 2 * leastMargin);
    const int inner = cardWidth - 2 * padding;
    _width->changeSize(inner, 0);
    fit(inner);
    layout()->invalidate();
    layout()->activate();
    update();
}

void CardOverlay::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const Palette& palette = appearance().palette();
    if (!_rise->isEnabled() && !_isPicturing) {
        painter.fillRect(rect(), palette.scrim);
    }
    Painting::fillRounded(painter, QRectF(card()), radius, palette.surfaceMenu);
    Painting::strokeInside(painter, QRectF(card()), radius, 1, palette.strongLine);
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
    if (parentWidget()->isVisible() && !appearance().reducedMotion()) {
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
    auto* const picture = new LeavingPicture(card, appearance().palette().scrim, parentWidget());
    picture->show();
}

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
