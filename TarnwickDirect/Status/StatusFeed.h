#pragma once

#include "Tarnwick/PullRequestMenuModel.h"
#include "TarnwickDirect/Status/Status.h"
#include "TarnwickDirect/Status/Trouble.h"

#include <QObject>
#include <QTimer>

namespace TarnwickDirect {

/// The status of the model's list. After a change it is counted once, from the event loop.
/// Requires: the model and its trouble outlive it. Main thread only.
class StatusFeed final : public QObject {
    Q_OBJECT

public:
    StatusFeed(
        const Tarnwick::PullRequestMenuModel& model,
        const Trouble& trouble,
        QObject* parent = nullptr);

    const Status& status() const { return _status; }

Q_SIGNALS:
    void changed();

private:
    void count();

    const Tarnwick::PullRequestMenuModel& _model;
    const Trouble& _trouble;
    Status _status;
    QTimer _soon;
};

}  // namespace TarnwickDirect
