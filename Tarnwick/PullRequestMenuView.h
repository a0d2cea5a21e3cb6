#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QWidget>

#include <functional>

namespace Tarnwick {

class Appearance;

/// What the panel shows: header, content by the model's state, footer, options menu, alerts and the
/// editor's overlay. It decides nothing: every action is an operation of the model or of the
/// desktop. Main thread only.
class PullRequestMenuView final : public QWidget {
    Q_OBJECT

public:
    /// Requires: `model` and `appearance` live longer than the view.
    PullRequestMenuView(
        PullRequestMenuModel& model, Appearance& appearance, QWidget* parent = nullptr);

    /// Without an action the options menu has no "Check for Updates…".
    void setUpdateCheck(bool canCheckForUpdates, std::function<void()> checkForUpdates);

    /// Whether a menu, an alert or the editor's overlay is up, so that the panel must not close
    /// when it loses the focus.
    bool keepsOpen() const;

    /// To be called when the panel comes in sight and when it goes: nothing ticks in between.
    void panelShown();
    void panelHidden();

Q_SIGNALS:
    void closeRequested();
    void quitRequested();
};

}  // namespace Tarnwick
