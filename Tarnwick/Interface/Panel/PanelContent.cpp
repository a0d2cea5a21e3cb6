#include "Tarnwick/Interface/Panel/PanelContent.h"

#include "Tarnwick/Model/RefreshFailure.h"

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
    content.detail = choosesNothing ? QStringLiteral("No repository is selected.")
                                    : QString::fromStdString(hiddenSentence(hidden));
    content.offersRepositories = choosesNothing;
    return content;
}

/// Signing in is no way out where GitHub itself does not answer.
PanelContent cannotAsk(const MenuState& state)
{
    const QString message = QString::fromStdString(state.message);
    switch (refreshFailure(state)) {
    case RefreshFailure::signedOut:
        return AuthenticationContent{
            QStringLiteral("person.crop.circle.badge.exclamationmark"),
            QStringLiteral("Sign in to GitHub"),
            message};
    case RefreshFailure::ghUnavailable:
        return AuthenticationContent{
            QStringLiteral("terminal"), QStringLiteral("GitHub CLI unavailable"), message};
    case RefreshFailure::requestFailed:
        break;
    }
    return status("exclamationmark.triangle", message, false);
}

}  // namespace

PanelContent panelContent(
    const MenuState& state, bool hasRows, bool choosesNothing, const HiddenCounts& hidden)
{
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
    case MenuState::Kind::signedOut:
    case MenuState::Kind::unavailable:
        return cannotAsk(state);
    }
    return ListContent{};
}

}  // namespace Tarnwick
