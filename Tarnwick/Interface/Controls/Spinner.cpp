#include "Tarnwick/Interface/Controls/Spinner.h"

#include "Tarnwick/Interface/Look/Appearance.h"

#include <QPainter>
#include <QTimerEvent>

namespace Tarnwick {
namespace {

constexpr int frameMilliseconds = 33;
constexpr int turnMilliseconds = 900;
constexpr double lineWidth = 2;
constexpr int sixteenthsOfDegree = 16;

}  // namespace

Spinner::Spinner(int size, const Appearance& appearance, QWidget* parent)
    : QWidget(parent)
    , _size(size)
    , _appearance(appearance)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    connect(&appearance, &Appearance::changed, this, [this] {
        updateGeometry();
        update();
    });
}

QSize Spinner::sizeHint() const
{
    return {_appearance.scaled(_size), _appearance.scaled(_size)};
}

void Spinner::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ring =
        QRectF(rect()).adjusted(lineWidth / 2, lineWidth / 2, -lineWidth / 2, -lineWidth / 2);
    QPen pen(_appearance.palette().strongLine, lineWidth);
    pen.setCapStyle(Qt::RoundCap);
    painter.setPen(pen);
    painter.drawEllipse(ring);
    pen.setColor(_appearance.palette().textLink);
    painter.setPen(pen);
    const bool turns = _timer.isActive();
    const double turned =
        turns ? static_cast<double>(_since.elapsed() % turnMilliseconds) / turnMilliseconds * 360
              : 0;
    const int span = turns ? 90 : 180;
    painter.drawArc(
        ring, static_cast<int>((135 - turned) * sixteenthsOfDegree), -span * sixteenthsOfDegree);
}

void Spinner::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == _timer.timerId()) {
        update();
    }
}

void Spinner::showEvent(QShowEvent* /*event*/)
{
    if (!_appearance.reducedMotion()) {
        _since.start();
        _timer.start(frameMilliseconds, this);
    }
}

void Spinner::hideEvent(QHideEvent* /*event*/)
{
    _timer.stop();
}

}  // namespace Tarnwick
