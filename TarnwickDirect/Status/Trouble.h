#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QObject>
#include <QTimer>

namespace TarnwickDirect {

/// Whether the list is in trouble: signed out, `gh` missing, or refreshes failing while the list
/// gets old. A timer runs only until a failure becomes trouble. Requires: the model outlives it.
/// Main thread only.
class Trouble final : public QObject {
    Q_OBJECT

public:
    explicit Trouble(const Tarnwick::PullRequestMenuModel& model, QObject* parent = nullptr);

    bool isThere() const { return _isThere; }

Q_SIGNALS:
    void changed();

private:
    void update();
    void set(bool isThere);

    const Tarnwick::PullRequestMenuModel& _model;
    QTimer _timer;
    bool _isThere = false;
};

}  // namespace TarnwickDirect
