#include "TarnwickDirect/SoftwareUpdate/UpdatePage.h"

#include "TarnwickDirect/SoftwareUpdate/HttpsFetch.h"
#include "TarnwickDirect/SoftwareUpdate/ReleaseNotes.h"

#include <QFile>

namespace TarnwickDirect {
namespace {

using Kind = UpdateState::Kind;

/// How this installation is updated, as a sentence.
QString wayOf(const Installation& installation)
{
    switch (installation.kind) {
    case Installation::Kind::debianPackage:
        return QStringLiteral("Would you like to install it now?");
    case Installation::Kind::repositoryPackage:
        return QStringLiteral("Your package manager updates it: run \"sudo apt update && sudo apt "
                              "install --only-upgrade %1\".")
            .arg(installation.package);
    case Installation::Kind::source:
        return QStringLiteral("This copy was built from source. Build it again to update it.");
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
    UpdatePage page{
        .title = QStringLiteral("A new version of Tarnwick is available!"),
        .message = sentences.join(u' '),
        .notes = plainReleaseNotes(offer.releaseNotes),
        .wasAskedFor = state.wasAskedFor};
    if (!installation.takesPackages()) {
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
    return {
        .title = QStringLiteral("Downloading Update…"),
        .message = QStringLiteral("%1 of %2")
                       .arg(sizeText(state.receivedBytes), sizeText(state.offer.length)),
        .progress = double(state.receivedBytes) / double(state.offer.length),
        .actions = {UpdateAction::cancel}};
}

UpdatePage busyPage(const QString& title)
{
    return {.title = title, .isBusy = true, .actions = {UpdateAction::cancel}};
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
    }
    return {};
}

UpdateAction UpdatePage::closing() const
{
    return actions.size() == 1 ? actions.front() : UpdateAction::remindLater;
}

std::optional<UpdatePage> updatePage(
    const UpdateState& state, const Installation& installation, const QString& ownVersion)
{
    switch (state.kind) {
    case Kind::idle:
        return std::nullopt;
    case Kind::checking:
        return busyPage(QStringLiteral("Checking for Updates…"));
    case Kind::told:
        return UpdatePage{
            .title = state.title, .message = state.message, .actions = {UpdateAction::okay}};
    case Kind::available:
        return availablePage(state, installation, ownVersion);
    case Kind::downloading:
        return downloadingPage(state);
    case Kind::verifying:
        return busyPage(QStringLiteral("Verifying Update…"));
    case Kind::handedOver:
        return UpdatePage{
            .title = QStringLiteral("Continue in the Installer"),
            .message = QStringLiteral("The system's installer was asked to open \"%1\". If it does "
                                      "not, run \"sudo apt install '%2'\".")
                           .arg(state.offer.fileName, QFile::decodeName(state.package.c_str())),
            .actions = {UpdateAction::okay}};
    }
    return std::nullopt;
}

}  // namespace TarnwickDirect
