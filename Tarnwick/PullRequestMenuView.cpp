#include "Tarnwick/PullRequestMenuView.h"

namespace Tarnwick {

PullRequestMenuView::PullRequestMenuView(
    PullRequestMenuModel& /*model*/, Appearance& /*appearance*/, QWidget* parent)
    : QWidget(parent)
{}

void PullRequestMenuView::setUpdateCheck(
    bool /*canCheckForUpdates*/, std::function<void()> /*checkForUpdates*/)
{}

bool PullRequestMenuView::keepsOpen() const
{
    return false;
}

void PullRequestMenuView::panelShown() {}

void PullRequestMenuView::panelHidden() {}

}  // namespace Tarnwick
