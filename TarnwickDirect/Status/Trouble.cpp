#include "TarnwickDirect/Status/Trouble.h"

#include "TarnwickDirect/Tray/TrayStatus.h"

#include <utility>

namespace TarnwickDirect {

using std::chrono::seconds;
using Tarnwick::PullRequestMenuModel;

Trouble::Trouble(const PullRequestMenuModel& model, QObject* parent)
    : QObject(parent)
    , _model(model)
{
    _timer.setSingleShot(true);
    _timer.setTimerType(Qt::VeryCoarseTimer);
    connect(&_timer, &QTimer::timeout, this, [this] { set(true); });
    connect(&model, &PullRequestMenuModel::lastFailureChanged, this, &Trouble::update);
    connect(&model, &PullRequestMenuModel::lastRefreshedChanged, this, &Trouble::update);
    update();
}

void Trouble::update()
{
    const auto& failure = _model.lastFailure();
    const auto kind = failure ? std::optional(Tarnwick::refreshFailure(*failure)) : std::nullopt;
    const auto wait = untilTrouble(kind, _model.lastRefreshed(), _model.now());
    const bool isNow = wait && *wait == seconds{0};
    _timer.stop();
    if (wait && !isNow && !_isThere) {
        _timer.start(*wait);
    }
    set(isNow || (wait && _isThere));
}

void Trouble::set(bool isThere)
{
    if (std::exchange(_isThere, isThere) != isThere) {
        Q_EMIT changed();
    }
}

}  // namespace TarnwickDirect
