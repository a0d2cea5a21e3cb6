#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QWidget>

namespace Tarnwick {

class InfoBar;

/// The info bars above the footer: what went wrong with the refresh and with a setting, that
/// polling rests, what GitHub left out, and, once, what the list by whose turn leaves out. At most
/// one of each. Main thread only.
class InfoBarStack final : public QWidget {
    Q_OBJECT

public:
    InfoBarStack(PullRequestMenuModel& model, QWidget* parent);

Q_SIGNALS:
    /// The focus was in a info bar whose button was used, or that goes.
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
