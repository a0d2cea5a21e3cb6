#include "TarnwickDirect/SoftwareUpdate/Dialog/UpdateDialogs.h"

#include <utility>

namespace TarnwickDirect {

UpdateDialogs::UpdateDialogs(
    AppcastUpdater& updater, QString ownVersion, std::function<void(QWidget&)> bringToFront)
    : _updater(updater)
    , _ownVersion(std::move(ownVersion))
    , _bringToFront(std::move(bringToFront))
{
    connect(&updater, &AppcastUpdater::stateChanged, this, &UpdateDialogs::show);
}

UpdateDialog& UpdateDialogs::dialog()
{
    if (!_dialog) {
        _dialog = std::make_unique<UpdateDialog>(_bringToFront);
        connect(_dialog.get(), &UpdateDialog::triggered, this, &UpdateDialogs::act);
    }
    return *_dialog;
}

void UpdateDialogs::bringToFront()
{
    if (_updater.state().kind != UpdateState::Kind::idle) {
        _bringToFront(dialog());
    }
}

void UpdateDialogs::show()
{
    const auto page = updatePage(_updater.state(), _updater.installation(), _ownVersion);
    const bool hadFocus = dialog().isActiveWindow();
    dialog().setPage(page);
    if (!page && hadFocus) {
        Q_EMIT closed();
    }
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
