#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QWidget>

namespace Tarnwick {

class InfoBar;

/// The info bars above the footer, at most one of each: errors of refreshes and settings, resting
/// polling, truncated results, and the hint on the list by turn. Main thread only.
class InfoBarStack final : public QWidget {
    Q_OBJECT

public:
    InfoBarStack(PullRequestMenuModel& model, QWidget* parent);

Q_SIGNALS:
    /// The focus was in an info bar whose button was used or that is closing.
    void focusReleased();

private:
    void showRefreshError();
    void showSettingsError();
    void showRestingQuota();
    void showTruncation();
    void showInvolvedHint();

    PullRequestMenuModel& _model;
    InfoBar* _refreshError;
    InfoBar* _settingsError;
    InfoBar* _restingQuota;
    InfoBar* _truncation;
    InfoBar* _involvedHint;
};

}  // namespace Tarnwick
