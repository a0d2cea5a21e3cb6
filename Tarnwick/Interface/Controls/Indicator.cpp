#include "Tarnwick/Interface/Controls/Indicator.h"

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QTimerEvent>

namespace Tarnwick {
namespace {

constexpr int frameMilliseconds = 33;

}  // namespace

Indicator::Indicator(QWidget* parent)
    : QWidget(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

double Indicator::phase(int milliseconds) const
{
    return static_cast<double>(_since.elapsed() % milliseconds) / milliseconds;
}

void Indicator::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == _timer.timerId()) {
        update();
    }
}

void Indicator::showEvent(QShowEvent* /*event*/)
{
    if (!appearance().reducedMotion()) {
        _since.start();
        _timer.start(frameMilliseconds, this);
    }
}

}  // namespace Tarnwick
