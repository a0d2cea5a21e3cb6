#include "TarnwickDirect/SoftwareUpdate/Dialog/UpdateDialogs.h"

#include <utility>

namespace TarnwickDirect {

UpdateDialogs::UpdateDialogs(
    AppcastUpdater& updater, QString ownVersion, const Tarnwick::Appearance& appearance)
    : _updater(updater)
    , _ownVersion(std::move(ownVersion))
    , _dialog(appearance)
{
    connect(&updater, &AppcastUpdater::stateChanged, this, &UpdateDialogs::show);
    connect(&_dialog, &UpdateDialog::triggered, this, &UpdateDialogs::act);
}

void UpdateDialogs::show()
{
    _dialog.setPage(updatePage(_updater.state(), _updater.installation(), _ownVersion));
}

void UpdateDialogs::act(UpdateAction action)
{
    switch (action) {
    case UpdateAction::cancel:
        _updater.cancel();
        break;
    case UpdateAction::skip:
        _updater.skip();
        break;
    case UpdateAction::install:
        _updater.install();
        break;
    case UpdateAction::okay:
    case UpdateAction::remindLater:
    case UpdateAction::later:
        _updater.dismiss();
        break;
    case UpdateAction::restart:
        _updater.dismiss();
        Q_EMIT restartRequested();
        break;
    }
}

}  // namespace TarnwickDirect
