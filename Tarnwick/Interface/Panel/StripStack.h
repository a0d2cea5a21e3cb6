#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QWidget>

namespace Tarnwick {

class Strip;

/// The strips above the footer: what went wrong with the refresh and with a setting, that polling
/// rests, what GitHub left out, and, once, what the list by whose turn leaves out. At most one of
/// each. Main thread only.
class StripStack final : public QWidget {
    Q_OBJECT

public:
    StripStack(PullRequestMenuModel& model, QWidget* parent);

Q_SIGNALS:
    /// The focus was in a strip whose button was used, or that goes.
    void focusReleased();

private:
    void showRefreshError();
    void showSettingsError();
    void showRestingQuota();
    void showShortfall();
    void showInvolvedHint();

    PullRequestMenuModel& _model;
    Strip* _refreshError;
    Strip* _settingsError;
    Strip* _restingQuota;
    Strip* _shortfall;
    Strip* _involvedHint;
};

}  // namespace Tarnwick
