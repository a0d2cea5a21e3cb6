#include "Tarnwick/Interface/Panel/PanelContent.h"

namespace Tarnwick {
namespace {

StatusContent status(const char* symbol, const QString& title, bool hasSpinner)
{
    return {
        .symbol = QLatin1String(symbol),
        .image = {},
        .title = title,
        .hasSpinner = hasSpinner,
        .offersRepositories = false};
}

StatusContent loading()
{
    return {
        .symbol = {},
        .image = QStringLiteral("tarnwick-zap-black-cutout"),
        .title = QStringLiteral("Loading pull requests…"),
        .hasSpinner = true,
        .offersRepositories = false};
}

PanelContent loaded(bool hasRows, bool choosesNothing, const HiddenCounts& hidden)
{
    if (hasRows) {
        return ListContent{};
    }
    StatusContent content =
        status("tray", QStringLiteral("No pull requests involving you were found."), false);
    content.detail = QString::fromStdString(hiddenSentence(hidden));
    content.offersRepositories = choosesNothing;
    return content;
}

}  // namespace

PanelContent panelContent(
    const MenuState& state, bool hasRows, bool choosesNothing, const HiddenCounts& hidden)
{
    const QString message = QString::fromStdString(state.message);
    switch (state.kind) {
    case MenuState::Kind::idle:
    case MenuState::Kind::checkingAuthentication:
        return status(
            "person.badge.key", QStringLiteral("Checking GitHub CLI authentication…"), true);
    case MenuState::Kind::loading:
        return hasRows ? PanelContent{ListContent{}} : PanelContent{loading()};
    case MenuState::Kind::loaded:
        return loaded(hasRows, choosesNothing, hidden);
    case MenuState::Kind::failed:
        return status("exclamationmark.triangle", message, false);
    case MenuState::Kind::signedOut:
        return AuthenticationContent{
            QStringLiteral("person.crop.circle.badge.exclamationmark"),
            QStringLiteral("Sign in to GitHub"),
            message};
    case MenuState::Kind::unavailable:
        if (state.isServiceOutOfReach) {
            return status("exclamationmark.triangle", message, false);
        }
        return AuthenticationContent{
            QStringLiteral("terminal"), QStringLiteral("GitHub CLI unavailable"), message};
    }
    return ListContent{};
}

}  // namespace Tarnwick
