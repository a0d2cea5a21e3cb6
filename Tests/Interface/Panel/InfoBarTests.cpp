#include "Tarnwick/Interface/Panel/InfoBar.h"

#include "Fakes/ModelFixture.h"
#include "Tarnwick/Interface/Panel/InfoBarStack.h"
#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <QAbstractButton>

namespace Tarnwick {
namespace {

using namespace TestSupport;

class InfoBarTests : public ModelTest {
protected:
    InfoBarTests()
    {
        start();
        infoBars = std::make_unique<InfoBarStack>(*model, nullptr);
    }

    InfoBar& infoBar(const char* name) const
    {
        return *infoBars->findChild<InfoBar*>(QLatin1String(name));
    }

    void press(const char* name) const
    {
        infoBars->findChild<QAbstractButton*>(QLatin1String(name))->click();
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

    std::unique_ptr<InfoBarStack> infoBars;
};

TEST_F(InfoBarTests, areHiddenWhileThereIsNothingToSay)
{
    for (const char* const name :
         {"refreshError", "settingsError", "restingQuota", "truncation", "involvedHint"}) {
        EXPECT_TRUE(infoBar(name).isHidden()) << name;
    }
}

TEST_F(InfoBarTests, thatPollingRestsIsSaidUntilGitHubGrantsMore)
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
        infoBar("restingQuota").text().startsWith(QStringLiteral("GitHub quota 312 of 5,000")))
        << infoBar("restingQuota").text().toStdString();
    EXPECT_FALSE(infoBar("restingQuota").isHidden());
    clock->advance(std::chrono::minutes(10));
    EXPECT_TRUE(eventually([this] { return infoBar("restingQuota").isHidden(); }));
}

TEST_F(InfoBarTests, theListByWhoseTurnLeadsOnceToWhatInvolvesTheUser)
{
    model->setArrangement(Arrangement::byWhoseTurn);
    EXPECT_EQ(
        infoBar("involvedHint").text(),
        QStringLiteral("Only what asks for your review is listed."));
    EXPECT_FALSE(infoBar("involvedHint").isHidden());
    press("involvedHintAction");
    EXPECT_EQ(model->settings().reviewerFilter, ReviewerFilter::involved);
    EXPECT_TRUE(infoBar("involvedHint").isHidden());
    model->setReviewerFilter(ReviewerFilter::myself);
    EXPECT_TRUE(infoBar("involvedHint").isHidden());
}

TEST_F(InfoBarTests, theWayToWhatInvolvesTheUserIsNotShownAgainAfterItWasPutAway)
{
    model->setArrangement(Arrangement::byWhoseTurn);
    press("involvedHintDismiss");
    EXPECT_EQ(model->settings().reviewerFilter, ReviewerFilter::myself);
    EXPECT_TRUE(infoBar("involvedHint").isHidden());
    model->setArrangement(Arrangement::byReviewState);
    model->setArrangement(Arrangement::byWhoseTurn);
    EXPECT_TRUE(infoBar("involvedHint").isHidden());
    infoBars = std::make_unique<InfoBarStack>(*model, nullptr);
    EXPECT_TRUE(infoBar("involvedHint").isHidden());
}

TEST_F(InfoBarTests, nobodyIsToldThatOnlyReviewsAreListedWhereMoreIs)
{
    model->setReviewerFilter(ReviewerFilter::any);
    model->setArrangement(Arrangement::byWhoseTurn);
    EXPECT_TRUE(infoBar("involvedHint").isHidden());
    model->setReviewerFilter(ReviewerFilter::myself);
    EXPECT_FALSE(infoBar("involvedHint").isHidden());
    model->setReviewerFilter(ReviewerFilter::any);
    EXPECT_TRUE(infoBar("involvedHint").isHidden());
}

TEST_F(InfoBarTests, aFailedRefreshCanBeTriedAgainAndPutAway)
{
    listAndFail();
    ASSERT_EQ(
        infoBar("refreshError").text(),
        QStringLiteral("Showing cached data: error connecting to api.github.com"));
    EXPECT_FALSE(infoBar("refreshError").isHidden());
    press("refreshErrorDismiss");
    EXPECT_FALSE(model->refreshError());
    EXPECT_TRUE(infoBar("refreshError").isHidden());

    refreshInVain();
    ASSERT_FALSE(infoBar("refreshError").isHidden());
    provider->setError({});
    press("refreshErrorAction");
    ASSERT_TRUE(settle());
    EXPECT_TRUE(infoBar("refreshError").isHidden());
}

TEST_F(InfoBarTests, aSettingsErrorCanBePutAway)
{
    loginItem->error = "the disk is full";
    model->toggleLaunchAtLogin();
    EXPECT_EQ(
        infoBar("settingsError").text(),
        QStringLiteral("Open at Login could not be changed: the disk is full"));
    press("settingsErrorDismiss");
    EXPECT_FALSE(model->settingsError());
    EXPECT_TRUE(infoBar("settingsError").isHidden());
}

TEST_F(InfoBarTests, aTextTakesThreeLinesAtMostAndIsWholeInItsToolTip)
{
    QWidget panel;
    InfoBar tall(InfoBar::Tone::error, QStringLiteral("tall"), &panel);
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

TEST_F(InfoBarTests, staysWhileTheNextRefreshRunsAndGoesWithItsSuccess)
{
    listAndFail();
    const QString text = infoBar("refreshError").text();
    ASSERT_FALSE(text.isEmpty());
    provider->setError({});
    openAndHold();
    EXPECT_FALSE(model->refreshError());
    EXPECT_EQ(infoBar("refreshError").text(), text);
    releaseAndSettle();
    EXPECT_EQ(infoBar("refreshError").text(), QString());
}

TEST_F(InfoBarTests, onceItIsPutAwayItStaysAwayUntilTheNextFailure)
{
    listAndFail();
    provider->setError({});
    openAndHold();
    press("refreshErrorDismiss");
    EXPECT_TRUE(infoBar("refreshError").isHidden());
    releaseAndSettle();
    EXPECT_TRUE(infoBar("refreshError").isHidden());
    refreshInVain();
    EXPECT_FALSE(infoBar("refreshError").isHidden());
}

TEST_F(InfoBarTests, aTextOfSeveralLinesIsSetAsOneAndWholeInItsToolTip)
{
    QWidget panel;
    InfoBar one(InfoBar::Tone::error, QStringLiteral("one"), &panel);
    const QString text = QStringLiteral("github.com\n  X token refused");
    one.setText(text);
    one.resize(420, one.heightForWidth(420));
    EXPECT_EQ(one.height(), 8 + 16 + 8);
    EXPECT_EQ(one.accessibleName(), QStringLiteral("github.com: token refused"));
    EXPECT_EQ(one.toolTip(), text);
}

TEST_F(InfoBarTests, slidesOpenAndShut)
{
    QWidget panel;
    InfoBar sliding(InfoBar::Tone::error, QStringLiteral("sliding"), &panel);
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

TEST_F(InfoBarTests, doesNotSlideWhereTheDesktopWantsNoMotion)
{
    QWidget panel;
    setApplicationStyle(1.0).setPreferences({.reducedMotion = true, .higherContrast = false});
    InfoBar still(InfoBar::Tone::error, QStringLiteral("still"), &panel);
    panel.show();
    still.setText(QStringLiteral("short"));
    EXPECT_EQ(still.heightForWidth(420), 32);
    still.setText({});
    EXPECT_TRUE(still.isHidden());
}

}  // namespace
}  // namespace Tarnwick
