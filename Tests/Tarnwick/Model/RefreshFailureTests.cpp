#include "Tarnwick/Model/RefreshFailure.h"

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

using Kind = MenuState::Kind;

TEST(RefreshFailureTests, followsFromTheState)
{
    EXPECT_EQ(
        refreshFailure({Kind::signedOut, "GitHub CLI is not logged in."}),
        RefreshFailure::signedOut);
    EXPECT_EQ(
        refreshFailure(
            {Kind::unavailable,
             "GitHub CLI (gh) was not found. Install it, then run gh auth login."}),
        RefreshFailure::ghUnavailable);
    EXPECT_EQ(
        refreshFailure({Kind::unavailable, "Could not run gh auth status: timed out"}),
        RefreshFailure::ghUnavailable);
    EXPECT_EQ(
        refreshFailure({Kind::failed, "error connecting to api.github.com"}),
        RefreshFailure::requestFailed);
}

TEST(RefreshFailureTests, isNoMatterOfTheLoginWhenGitHubIsNotReachedOrItsLimitIsUsedUp)
{
    EXPECT_EQ(
        refreshFailure({Kind::unavailable, "GitHub cannot be reached.", true}),
        RefreshFailure::requestFailed);
    EXPECT_EQ(
        refreshFailure(
            {Kind::unavailable, "GitHub's limit for your account is used up until 14:20.", true}),
        RefreshFailure::requestFailed);
}

}  // namespace
}  // namespace Tarnwick
