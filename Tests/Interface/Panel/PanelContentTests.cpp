#include "Tarnwick/Interface/Panel/PanelContent.h"

#include <gmock/gmock.h>

namespace Tarnwick {
namespace {

using Kind = MenuState::Kind;
using testing::ElementsAre;

NoticeContent noticeOf(const MenuState& state, bool choosesNothing = false)
{
    return panelContent(state, false, choosesNothing).value();
}

TEST(PanelContentTests, checksTheLoginFirst)
{
    const NoticeContent expected{
        .symbol = QStringLiteral("person.badge.key"),
        .title = QStringLiteral("Checking GitHub CLI authentication…"),
        .hasSpinner = true};
    EXPECT_EQ(noticeOf({Kind::idle, {}}), expected);
    EXPECT_EQ(noticeOf({Kind::checkingAuthentication, {}}), expected);
}

TEST(PanelContentTests, loadsWithThePicture)
{
    const NoticeContent expected{
        .image = QStringLiteral("tarnwick-zap-black-cutout"),
        .title = QStringLiteral("Loading pull requests…"),
        .hasSpinner = true};
    EXPECT_EQ(noticeOf({Kind::loading, {}}), expected);
}

TEST(PanelContentTests, loadingWithRowsKeepsShowingThem)
{
    EXPECT_FALSE(panelContent({Kind::loading, {}}, true, false));
    EXPECT_FALSE(panelContent({Kind::loaded, {}}, true, false));
}

TEST(PanelContentTests, anEmptyListOffersAnotherTry)
{
    const NoticeContent expected{
        .symbol = QStringLiteral("tray"),
        .title = QStringLiteral("No pull requests involving you were found."),
        .actions = {NoticeAction::tryAgain}};
    EXPECT_EQ(noticeOf({Kind::loaded, {}}), expected);
}

TEST(PanelContentTests, anEmptySelectionOffersTheRepositories)
{
    const NoticeContent content = noticeOf({Kind::loaded, {}}, true);
    EXPECT_EQ(content.title, QStringLiteral("No pull requests involving you were found."));
    EXPECT_EQ(content.message, QStringLiteral("No repository is selected."));
    EXPECT_THAT(
        content.actions, ElementsAre(NoticeAction::chooseRepositories, NoticeAction::tryAgain));
}

TEST(PanelContentTests, anEmptyListSaysWhatIsHidden)
{
    const auto content = panelContent({Kind::loaded, {}}, false, false, {.filters = 9});
    EXPECT_EQ(content->title, QStringLiteral("No pull requests involving you were found."));
    EXPECT_EQ(content->message, QStringLiteral("9 are hidden by filters."));
    EXPECT_THAT(content->actions, ElementsAre(NoticeAction::showHidden, NoticeAction::tryAgain));
}

TEST(PanelContentTests, aFailureIsItsMessageAndNobodyIsAskedToSignIn)
{
    for (const MenuState& state :
         {MenuState{Kind::failed, "error connecting to api.github.com"},
          MenuState{Kind::unavailable, "GitHub cannot be reached.", true},
          MenuState{
              Kind::unavailable,
              "GitHub's limit for your account is used up until 14:20.",
              true}}) {
        const NoticeContent expected{
            .symbol = QStringLiteral("exclamationmark.triangle"),
            .title = QString::fromStdString(state.message),
            .actions = {NoticeAction::tryAgain}};
        EXPECT_EQ(noticeOf(state), expected);
    }
}

TEST(PanelContentTests, signedOutAndUnavailableSayWhatToDo)
{
    const NoticeContent signedOut{
        .symbol = QStringLiteral("person.crop.circle.badge.exclamationmark"),
        .title = QStringLiteral("Sign in to GitHub"),
        .message = QStringLiteral("GitHub CLI is not logged in."),
        .hint = QStringLiteral("Run `gh auth login` in Terminal, then try again."),
        .actions = {NoticeAction::copyLogin, NoticeAction::tryAgain}};
    EXPECT_EQ(noticeOf({Kind::signedOut, "GitHub CLI is not logged in."}), signedOut);
    const NoticeContent unavailable = noticeOf({Kind::unavailable, "gh was not found."});
    EXPECT_EQ(unavailable.symbol, QStringLiteral("terminal"));
    EXPECT_EQ(unavailable.title, QStringLiteral("GitHub CLI unavailable"));
    EXPECT_EQ(unavailable.message, QStringLiteral("gh was not found."));
    EXPECT_EQ(unavailable.actions, signedOut.actions);
}

}  // namespace
}  // namespace Tarnwick
