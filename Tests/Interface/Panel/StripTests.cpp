#include "Tarnwick/Interface/Panel/Strip.h"

#include "Fakes/ModelFixture.h"
#include "Tarnwick/Interface/Panel/StripStack.h"
#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <QAbstractButton>

namespace Tarnwick {
namespace {

using namespace TestSupport;

class StripTests : public ModelTest {
protected:
    StripTests()
    {
        start();
        strips = std::make_unique<StripStack>(*model, nullptr);
    }

    Strip& strip(const char* name) const { return *strips->findChild<Strip*>(QLatin1String(name)); }

    void press(const char* name) const
    {
        strips->findChild<QAbstractButton*>(QLatin1String(name))->click();
    }

    void refreshInVain()
    {
        provider->setError("error connecting to api.github.com");
        refresh();
    }

    /// A list that cannot be refreshed.
    void listAndFail()
    {
        selectTools();
        refresh();
        refreshInVain();
    }

    std::unique_ptr<StripStack> strips;
};

TEST_F(StripTests, areHiddenWhileThereIsNothingToSay)
{
    for (const char* const name :
         {"refreshError", "settingsError", "restingQuota", "shortfall", "involvedHint"}) {
        EXPECT_TRUE(strip(name).isHidden()) << name;
    }
}

TEST_F(StripTests, thatPollingRestsIsSaidUntilGitHubGrantsMore)
{
    const Quota quota{5000, 312, clock->now() + std::chrono::minutes(10)};
    provider->setFacts(
        [quota](std::span<const PullRequest>) { return FactsAnswer{.facts = {}, .quota = quota}; });
    provider->setPullRequests({makePullRequest(1)});
    selectTools();
    model->setArrangement(Arrangement::byWhoseTurn);
    refresh();
    runToEnd(model->askForFacts());
    EXPECT_TRUE(
        strip("restingQuota").text().startsWith(QStringLiteral("GitHub quota 312 of 5,000")))
        << strip("restingQuota").text().toStdString();
    EXPECT_FALSE(strip("restingQuota").isHidden());
    clock->advance(std::chrono::minutes(10));
    EXPECT_TRUE(eventually([this] { return strip("restingQuota").isHidden(); }));
}

TEST_F(StripTests, theListByWhoseTurnLeadsOnceToWhatInvolvesTheUser)
{
    model->setArrangement(Arrangement::byWhoseTurn);
    EXPECT_EQ(
        strip("involvedHint").text(), QStringLiteral("Only what asks for your review is listed."));
    EXPECT_FALSE(strip("involvedHint").isHidden());
    press("involvedHintAction");
    EXPECT_EQ(model->settings().reviewerFilter, ReviewerFilter::involved);
    EXPECT_TRUE(strip("involvedHint").isHidden());
    model->setReviewerFilter(ReviewerFilter::myself);
    EXPECT_TRUE(strip("involvedHint").isHidden());
}

TEST_F(StripTests, theWayToWhatInvolvesTheUserIsNotShownAgainAfterItWasPutAway)
{
    model->setArrangement(Arrangement::byWhoseTurn);
    press("involvedHintDismiss");
    EXPECT_EQ(model->settings().reviewerFilter, ReviewerFilter::myself);
    EXPECT_TRUE(strip("involvedHint").isHidden());
    model->setArrangement(Arrangement::byReviewState);
    model->setArrangement(Arrangement::byWhoseTurn);
    EXPECT_TRUE(strip("involvedHint").isHidden());
    strips = std::make_unique<StripStack>(*model, nullptr);
    EXPECT_TRUE(strip("involvedHint").isHidden());
}

TEST_F(StripTests, nobodyIsToldThatOnlyReviewsAreListedWhereMoreIs)
{
    model->setReviewerFilter(ReviewerFilter::any);
    model->setArrangement(Arrangement::byWhoseTurn);
    EXPECT_TRUE(strip("involvedHint").isHidden());
    model->setReviewerFilter(ReviewerFilter::myself);
    EXPECT_FALSE(strip("involvedHint").isHidden());
    model->setReviewerFilter(ReviewerFilter::any);
    EXPECT_TRUE(strip("involvedHint").isHidden());
}

TEST_F(StripTests, aFailedRefreshCanBeTriedAgainAndPutAway)
{
    listAndFail();
    ASSERT_EQ(
        strip("refreshError").text(),
        QStringLiteral("Showing cached data: error connecting to api.github.com"));
    EXPECT_FALSE(strip("refreshError").isHidden());
    press("refreshErrorDismiss");
    EXPECT_FALSE(model->refreshError());
    EXPECT_TRUE(strip("refreshError").isHidden());

    refreshInVain();
    ASSERT_FALSE(strip("refreshError").isHidden());
    provider->setError({});
    press("refreshErrorAction");
    ASSERT_TRUE(settle());
    EXPECT_TRUE(strip("refreshError").isHidden());
}

TEST_F(StripTests, aSettingsErrorCanBePutAway)
{
    loginItem->error = "the disk is full";
    model->toggleLaunchAtLogin();
    EXPECT_EQ(
        strip("settingsError").text(),
        QStringLiteral("Open at Login could not be changed: the disk is full"));
    press("settingsErrorDismiss");
    EXPECT_FALSE(model->settingsError());
    EXPECT_TRUE(strip("settingsError").isHidden());
}

TEST_F(StripTests, aTextTakesThreeLinesAtMostAndIsWholeInItsHelpText)
{
    QWidget panel;
    Strip tall(Strip::Tone::error, QStringLiteral("tall"), &panel);
    QString text;
    for (int word = 0; word < 80; ++word) {
        text += QStringLiteral("word ");
    }
    tall.setText(text);
    tall.resize(420, tall.heightForWidth(420));
    EXPECT_EQ(tall.height(), 8 + 3 * 16 + 8);
    EXPECT_EQ(tall.toolTip(), text);
    tall.setText(QStringLiteral("short"));
    EXPECT_EQ(tall.heightForWidth(420), 8 + 16 + 8);
    EXPECT_EQ(tall.toolTip(), QString());
}

TEST_F(StripTests, staysWhileTheNextRefreshRunsAndGoesWithItsSuccess)
{
    listAndFail();
    const QString text = strip("refreshError").text();
    ASSERT_FALSE(text.isEmpty());
    provider->setError({});
    openAndHold();
    EXPECT_FALSE(model->refreshError());
    EXPECT_EQ(strip("refreshError").text(), text);
    releaseAndSettle();
    EXPECT_EQ(strip("refreshError").text(), QString());
}

TEST_F(StripTests, onceItIsPutAwayItStaysAwayUntilTheNextFailure)
{
    listAndFail();
    provider->setError({});
    openAndHold();
    press("refreshErrorDismiss");
    EXPECT_TRUE(strip("refreshError").isHidden());
    releaseAndSettle();
    EXPECT_TRUE(strip("refreshError").isHidden());
    refreshInVain();
    EXPECT_FALSE(strip("refreshError").isHidden());
}

TEST_F(StripTests, aTextOfSeveralLinesIsSetAsOneAndWholeInItsHelpText)
{
    QWidget panel;
    Strip one(Strip::Tone::error, QStringLiteral("one"), &panel);
    const QString text = QStringLiteral("github.com\n  X token refused");
    one.setText(text);
    one.resize(420, one.heightForWidth(420));
    EXPECT_EQ(one.height(), 8 + 16 + 8);
    EXPECT_EQ(one.accessibleName(), QStringLiteral("github.com: token refused"));
    EXPECT_EQ(one.toolTip(), text);
}

TEST_F(StripTests, slidesOpenAndShut)
{
    QWidget panel;
    Strip sliding(Strip::Tone::error, QStringLiteral("sliding"), &panel);
    sliding.resize(420, 0);
    panel.show();
    sliding.setText(QStringLiteral("short"));
    EXPECT_TRUE(sliding.isVisible());
    EXPECT_LT(sliding.heightForWidth(420), 32);
    EXPECT_TRUE(eventually([&] { return sliding.heightForWidth(420) == 32; }));
    sliding.setText({});
    EXPECT_TRUE(sliding.isVisible());
    EXPECT_TRUE(eventually([&] { return sliding.isHidden(); }));
}

TEST_F(StripTests, doesNotSlideWhereTheDesktopWantsNoMotion)
{
    QWidget panel;
    setApplicationStyle(1.0).setPreferences({.reducedMotion = true, .higherContrast = false});
    Strip still(Strip::Tone::error, QStringLiteral("still"), &panel);
    panel.show();
    still.setText(QStringLiteral("short"));
    EXPECT_EQ(still.heightForWidth(420), 32);
    still.setText({});
    EXPECT_TRUE(still.isHidden());
}

}  // namespace
}  // namespace Tarnwick
