#include "TarnwickDirect/Application/TarnwickMenuContent.h"

namespace TarnwickDirect {

Tarnwick::PullRequestMenuView* TarnwickMenuContent::makeView(
    Tarnwick::PullRequestMenuModel& model, Tarnwick::Appearance& appearance) const
{
    auto* const view = new Tarnwick::PullRequestMenuView(model, appearance);
    view->setUpdateCheck(canCheckForUpdates, checkForUpdates);
    return view;
}

}  // namespace TarnwickDirect
