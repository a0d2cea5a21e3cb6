#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QWidget>

namespace Tarnwick {

class Appearance;
class Strip;

/// The strips above the footer: what went wrong with the refresh and with a setting, and what
/// GitHub left out. At most one of each. Main thread only.
class StripStack final : public QWidget {
    Q_OBJECT

public:
    StripStack(PullRequestMenuModel& model, const Appearance& appearance, QWidget* parent);

Q_SIGNALS:
    /// The focus was in a strip whose button was used, or that goes.
    void focusReleased();

private:
    void showRefreshError();
    void showSettingsError();
    void showShortfall();

    PullRequestMenuModel& _model;
    Strip* _refreshError;
    Strip* _settingsError;
    Strip* _shortfall;
};

}  // namespace Tarnwick
