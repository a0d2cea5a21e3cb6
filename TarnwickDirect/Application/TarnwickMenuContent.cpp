#include "TarnwickDirect/Application/TarnwickMenuContent.h"

namespace TarnwickDirect {

Tarnwick::PullRequestMenuView* TarnwickMenuContent::makeView(
    Tarnwick::PullRequestMenuModel& model, Tarnwick::Appearance& appearance) const
{
    auto* const view = new Tarnwick::PullRequestMenuView(model, appearance);
    update(*view);
    return view;
}

void TarnwickMenuContent::update(Tarnwick::PullRequestMenuView& view) const
{
    view.setUpdateCheck(canCheckForUpdates, checkForUpdates);
}

}  // namespace TarnwickDirect
