#include "TarnwickDirect/SoftwareUpdate/UpdatePage.h"

#include "TarnwickDirect/SoftwareUpdate/ReleaseNotes.h"
#include "TarnwickDirect/SoftwareUpdate/SizeText.h"

#include <QFile>

namespace TarnwickDirect {
namespace {

using Kind = UpdateState::Kind;

/// How an update comes to this installation, as sentences.
QString wayOf(const Installation& installation)
{
    switch (installation.kind) {
    case Installation::Kind::appImage:
    case Installation::Kind::debianPackage:
        return QStringLiteral("Would you like to install it now?");
    case Installation::Kind::repositoryPackage:
        return QStringLiteral("Your package manager updates it: run \"sudo apt update && sudo apt "
                              "install --only-upgrade %1\".")
            .arg(QString::fromStdString(installation.package));
    case Installation::Kind::source:
        return QStringLiteral("This copy was built from its source and is updated by building it "
                              "again.");
    }
    return {};
}

UpdatePage availablePage(
    const UpdateState& state, const Installation& installation, const QString& ownVersion)
{
    const UpdateOffer& offer = state.offer;
    QStringList sentences{QStringLiteral("Tarnwick %1 is available, and you have %2.")
                              .arg(offer.displayedVersion, ownVersion)};
    if (offer.isCritical) {
        sentences.append(QStringLiteral("It is a critical update."));
    }
    sentences.append(wayOf(installation));
    UpdatePage page;
    page.title = QStringLiteral("A new version of Tarnwick is available!");
    page.message = sentences.join(u' ');
    page.wasAskedFor = state.wasAskedFor;
    page.notes = plainReleaseNotes(offer.releaseNotes);
    if (!installation.format()) {
        page.actions = {UpdateAction::okay};
    } else if (offer.isCritical) {
        page.actions = {UpdateAction::remindLater, UpdateAction::install};
    } else {
        page.actions = {UpdateAction::skip, UpdateAction::remindLater, UpdateAction::install};
    }
    return page;
}

UpdatePage downloadingPage(const UpdateState& state)
{
    UpdatePage page;
    page.title = QStringLiteral("Downloading Update…");
    page.message =
        QStringLiteral("%1 of %2").arg(sizeText(state.receivedBytes), sizeText(state.offer.length));
    page.progress = double(state.receivedBytes) / double(state.offer.length);
    page.actions = {UpdateAction::cancel};
    return page;
}

UpdatePage busyPage(const QString& title, std::vector<UpdateAction> actions)
{
    UpdatePage page;
    page.title = title;
    page.isBusy = true;
    page.actions = std::move(actions);
    return page;
}

UpdatePage messagePage(
    const QString& title,
    const QString& message,
    std::vector<UpdateAction> actions = {UpdateAction::okay})
{
    UpdatePage page;
    page.title = title;
    page.message = message;
    page.actions = std::move(actions);
    return page;
}

}  // namespace

QString textOf(UpdateAction action)
{
    switch (action) {
    case UpdateAction::okay:
        return QStringLiteral("OK");
    case UpdateAction::cancel:
        return QStringLiteral("Cancel");
    case UpdateAction::skip:
        return QStringLiteral("Skip This Version");
    case UpdateAction::remindLater:
        return QStringLiteral("Remind Me Later");
    case UpdateAction::install:
        return QStringLiteral("Install Update");
    case UpdateAction::later:
        return QStringLiteral("Later");
    case UpdateAction::restart:
        return QStringLiteral("Restart Now");
    }
    return {};
}

std::optional<UpdateAction> UpdatePage::closing() const
{
    for (const UpdateAction action : actions) {
        switch (action) {
        case UpdateAction::okay:
        case UpdateAction::cancel:
        case UpdateAction::remindLater:
        case UpdateAction::later:
            return action;
        case UpdateAction::skip:
        case UpdateAction::install:
        case UpdateAction::restart:
            break;
        }
    }
    return std::nullopt;
}

std::optional<UpdatePage> updatePage(
    const UpdateState& state, const Installation& installation, const QString& ownVersion)
{
    switch (state.kind) {
    case Kind::idle:
        return std::nullopt;
    case Kind::checking:
        return busyPage(QStringLiteral("Checking for Updates…"), {UpdateAction::cancel});
    case Kind::upToDate:
        return messagePage(QStringLiteral("You're up to date!"), state.message);
    case Kind::noUpdate:
        return messagePage(QStringLiteral("No Update Available"), state.message);
    case Kind::available:
        return availablePage(state, installation, ownVersion);
    case Kind::downloading:
        return downloadingPage(state);
    case Kind::verifying:
        return busyPage(QStringLiteral("Verifying Update…"), {UpdateAction::cancel});
    case Kind::installing:
        return busyPage(QStringLiteral("Installing Update…"), {});
    case Kind::installed:
        return messagePage(
            QStringLiteral("Update Installed"),
            QStringLiteral("Tarnwick %1 runs once Tarnwick is started again.")
                .arg(state.offer.displayedVersion),
            {UpdateAction::later, UpdateAction::restart});
    case Kind::handedOver:
        return messagePage(
            QStringLiteral("Continue in the Installer"),
            QStringLiteral("The system's installer was asked to open \"%1\". If it does not, run "
                           "\"sudo apt install '%2'\".")
                .arg(state.offer.fileName, QFile::decodeName(state.package.c_str())));
    case Kind::failed:
        return messagePage(QStringLiteral("Update Error"), state.message);
    }
    return std::nullopt;
}

}  // namespace TarnwickDirect
