#include "Tarnwick/Interface/Panel/PanelContent.h"

#include "Tarnwick/Model/RefreshFailure.h"

namespace Tarnwick {
namespace {

NoticeContent nothingListed(bool choosesNothing, const HiddenCounts& hidden)
{
    NoticeContent content{
        .symbol = QStringLiteral("tray"),
        .title = QStringLiteral("No pull requests involving you were found."),
        .message = choosesNothing ? QStringLiteral("No repository is selected.")
                                  : QString::fromStdString(hiddenSentence(hidden)),
        .actions = {NoticeAction::tryAgain}};
    if (!content.message.isEmpty()) {
        content.actions.insert(
            content.actions.begin(),
            choosesNothing ? NoticeAction::chooseRepositories : NoticeAction::showHidden);
    }
    return content;
}

NoticeContent signIn(const char* symbol, const QString& title, const QString& message)
{
    return {
        .symbol = QLatin1String(symbol),
        .title = title,
        .message = message,
        .hint = QStringLiteral("Run `%1` in Terminal, then try again.").arg(loginCommand),
        .actions = {NoticeAction::copyLogin, NoticeAction::tryAgain}};
}

/// Does not offer to sign in when GitHub is unreachable.
NoticeContent cannotAsk(const MenuState& state)
{
    const QString message = QString::fromStdString(state.message);
    switch (refreshFailure(state)) {
    case RefreshFailure::signedOut:
        return signIn(
            "person.crop.circle.badge.exclamationmark",
            QStringLiteral("Sign in to GitHub"),
            message);
    case RefreshFailure::ghUnavailable:
        return signIn("terminal", QStringLiteral("GitHub CLI unavailable"), message);
    case RefreshFailure::requestFailed:
        break;
    }
    return {
        .symbol = QStringLiteral("exclamationmark.triangle"),
        .title = message,
        .actions = {NoticeAction::tryAgain}};
}

}  // namespace

std::optional<NoticeContent> panelContent(
    const MenuState& state, bool hasRows, bool choosesNothing, const HiddenCounts& hidden)
{
    switch (state.kind) {
    case MenuState::Kind::idle:
    case MenuState::Kind::checkingAuthentication:
        return NoticeContent{
            .symbol = QStringLiteral("person.badge.key"),
            .title = QStringLiteral("Checking GitHub CLI authentication…"),
            .hasSpinner = true};
    case MenuState::Kind::loading:
        if (hasRows) {
            return std::nullopt;
        }
        return NoticeContent{
            .image = QStringLiteral("tarnwick-zap-black-cutout"),
            .title = QStringLiteral("Loading pull requests…"),
            .hasSpinner = true};
    case MenuState::Kind::loaded:
        return hasRows ? std::nullopt : std::optional(nothingListed(choosesNothing, hidden));
    case MenuState::Kind::failed:
    case MenuState::Kind::signedOut:
    case MenuState::Kind::unavailable:
        return cannotAsk(state);
    }
    return std::nullopt;
}

}  // namespace Tarnwick
