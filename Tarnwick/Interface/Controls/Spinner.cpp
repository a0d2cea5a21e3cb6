#include "Tarnwick/Interface/Controls/Spinner.h"

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QPainter>

namespace Tarnwick {
namespace {

constexpr int turnMilliseconds = 900;
constexpr double lineWidth = 2;
constexpr int sixteenthsOfDegree = 16;

}  // namespace

Spinner::Spinner(int size, QWidget* parent)
    : Indicator(parent)
    , _size(size)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Spinner::sizeHint() const
{
    return {appearance().scaled(_size), appearance().scaled(_size)};
}

void Spinner::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ring =
        QRectF(rect()).adjusted(lineWidth / 2, lineWidth / 2, -lineWidth / 2, -lineWidth / 2);
    QPen pen(appearance().palette().strongLine, lineWidth);
    pen.setCapStyle(Qt::RoundCap);
    painter.setPen(pen);
    painter.drawEllipse(ring);
    pen.setColor(appearance().palette().textLink);
    painter.setPen(pen);
    const bool turns = isRunning();
    const double turned = turns ? 360 * phase(turnMilliseconds) : 0;
    const int span = turns ? 90 : 180;
    painter.drawArc(
        ring, static_cast<int>((135 - turned) * sixteenthsOfDegree), -span * sixteenthsOfDegree);
}

}  // namespace Tarnwick
