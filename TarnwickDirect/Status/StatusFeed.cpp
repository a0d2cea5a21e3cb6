#include "TarnwickDirect/Status/StatusFeed.h"

#include <chrono>
#include <utility>

namespace TarnwickDirect {

using Tarnwick::PullRequestMenuModel;

StatusFeed::StatusFeed(const PullRequestMenuModel& model, const Trouble& trouble, QObject* parent)
    : QObject(parent)
    , _model(model)
    , _trouble(trouble)
{
    _soon.setSingleShot(true);
    _soon.setInterval(std::chrono::milliseconds{0});
    connect(&_soon, &QTimer::timeout, this, &StatusFeed::count);
    const auto countSoon = qOverload<>(&QTimer::start);
    connect(&model, &PullRequestMenuModel::rowsChanged, &_soon, countSoon);
    connect(&model, &PullRequestMenuModel::turnsChanged, &_soon, countSoon);
    connect(&model, &PullRequestMenuModel::detailsChanged, &_soon, countSoon);
    connect(&model, &PullRequestMenuModel::accountChanged, &_soon, countSoon);
    connect(&model, &PullRequestMenuModel::lastRefreshedChanged, &_soon, countSoon);
    connect(&trouble, &Trouble::changed, &_soon, countSoon);
    count();
}

void StatusFeed::count()
{
    Status status = countedStatus(_model.rows(), _model.list().turns());
    status.isStale = _trouble.isThere();
    status.lastRefreshed = _model.lastRefreshed();
    if (std::exchange(_status, status) != status) {
        Q_EMIT changed();
    }
}

}  // namespace TarnwickDirect
