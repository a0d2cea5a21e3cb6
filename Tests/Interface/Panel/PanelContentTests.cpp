#include "Tarnwick/Interface/Panel/PanelContent.h"

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

using Kind = MenuState::Kind;

StatusContent statusOf(const MenuState& state, bool hasRows = false, bool choosesNothing = false)
{
    return std::get<StatusContent>(panelContent(state, hasRows, choosesNothing));
}

bool isList(const MenuState& state)
{
    return std::holds_alternative<ListContent>(panelContent(state, true, false));
}

TEST(PanelContentTests, checksTheLoginFirst)
{
    const StatusContent expected{
        .symbol = QStringLiteral("person.badge.key"),
        .image = {},
        .title = QStringLiteral("Checking GitHub CLI authentication…"),
        .hasSpinner = true,
        .offersRepositories = false};
    EXPECT_EQ(statusOf({Kind::idle, {}}), expected);
    EXPECT_EQ(statusOf({Kind::checkingAuthentication, {}}), expected);
}

TEST(PanelContentTests, loadsWithThePicture)
{
    const StatusContent expected{
        .symbol = {},
        .image = QStringLiteral("tarnwick-zap-black-cutout"),
        .title = QStringLiteral("Loading pull requests…"),
        .hasSpinner = true,
        .offersRepositories = false};
    EXPECT_EQ(statusOf({Kind::loading, {}}), expected);
}

TEST(PanelContentTests, loadingWithRowsKeepsShowingThem)
{
    EXPECT_TRUE(isList({Kind::loading, {}}));
    EXPECT_TRUE(isList({Kind::loaded, {}}));
}

TEST(PanelContentTests, anEmptyListOffersAnotherTry)
{
    const StatusContent content = statusOf({Kind::loaded, {}});
    EXPECT_EQ(content.symbol, QStringLiteral("tray"));
    EXPECT_EQ(content.title, QStringLiteral("No pull requests involving you were found."));
    EXPECT_FALSE(content.hasSpinner);
    EXPECT_FALSE(content.offersRepositories);
}

TEST(PanelContentTests, anEmptySelectionOffersTheRepositories)
{
    const StatusContent content = statusOf({Kind::loaded, {}}, false, true);
    EXPECT_EQ(content.title, QStringLiteral("No pull requests involving you were found."));
    EXPECT_EQ(content.detail, QStringLiteral("No repository is selected."));
    EXPECT_TRUE(content.offersRepositories);
}

TEST(PanelContentTests, anEmptyListSaysWhatIsHidden)
{
    const auto content =
        std::get<StatusContent>(panelContent({Kind::loaded, {}}, false, false, {.filters = 9}));
    EXPECT_EQ(content.title, QStringLiteral("No pull requests involving you were found."));
    EXPECT_EQ(content.detail, QStringLiteral("9 are hidden by filters."));
    EXPECT_EQ(statusOf({Kind::loaded, {}}).detail, QString());
}

TEST(PanelContentTests, aFailureIsItsMessage)
{
    const StatusContent content = statusOf({Kind::failed, "error connecting to api.github.com"});
    EXPECT_EQ(content.symbol, QStringLiteral("exclamationmark.triangle"));
    EXPECT_EQ(content.title, QStringLiteral("error connecting to api.github.com"));
    EXPECT_FALSE(content.hasSpinner);
}

TEST(PanelContentTests, nobodyIsAskedToSignInWhereGitHubDoesNotAnswer)
{
    for (const char* const message :
         {"GitHub cannot be reached.", "GitHub's limit for your account is used up until 14:20."}) {
        const StatusContent content = statusOf({Kind::unavailable, message, true});
        EXPECT_EQ(content.symbol, QStringLiteral("exclamationmark.triangle"));
        EXPECT_EQ(content.title, QString::fromLatin1(message));
        EXPECT_FALSE(content.hasSpinner);
        EXPECT_FALSE(content.offersRepositories);
    }
}

TEST(PanelContentTests, signedOutAndUnavailableSayWhatToDo)
{
    EXPECT_EQ(
        std::get<AuthenticationContent>(
            panelContent({Kind::signedOut, "GitHub CLI is not logged in."}, false, false)),
        (AuthenticationContent{
            QStringLiteral("person.crop.circle.badge.exclamationmark"),
            QStringLiteral("Sign in to GitHub"),
            QStringLiteral("GitHub CLI is not logged in.")}));
    EXPECT_EQ(
        std::get<AuthenticationContent>(
            panelContent({Kind::unavailable, "gh was not found."}, false, false)),
        (AuthenticationContent{
            QStringLiteral("terminal"),
            QStringLiteral("GitHub CLI unavailable"),
            QStringLiteral("gh was not found.")}));
}

TEST(PanelContentTests, aServiceOutOfReachIsSaidWithoutAnInvitationToSignIn)
{
    const auto content = std::get<StatusContent>(
        panelContent({Kind::unavailable, "GitHub cannot be reached.", true}, false, false));
    EXPECT_EQ(content.symbol, QStringLiteral("exclamationmark.triangle"));
    EXPECT_EQ(content.title, QStringLiteral("GitHub cannot be reached."));
    EXPECT_FALSE(content.hasSpinner);
}

}  // namespace
}  // namespace Tarnwick
