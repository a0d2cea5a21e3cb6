#include "TarnwickDirect/Application/TarnwickMenuContent.h"

namespace TarnwickDirect {

Tarnwick::PullRequestMenuView* TarnwickMenuContent::makeView(
    Tarnwick::PullRequestMenuModel& model) const
{
    auto* const view = new Tarnwick::PullRequestMenuView(model);
    update(*view);
    return view;
}

void TarnwickMenuContent::update(Tarnwick::PullRequestMenuView& view) const
{
    view.setUpdateCheck(canCheckForUpdates, checkForUpdates);
}

}  // namespace TarnwickDirect
