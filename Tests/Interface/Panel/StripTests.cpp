#include "Tarnwick/Interface/Panel/Strip.h"

#include "Fakes/ModelFixture.h"
#include "Tarnwick/Interface/Look/Appearance.h"
#include "Tarnwick/Interface/Panel/StripStack.h"

#include <QAbstractButton>

namespace Tarnwick {
namespace {

class StripTests : public TestSupport::ModelTest {
protected:
    StripTests()
    {
        start();
        strips = std::make_unique<StripStack>(*model, appearance, nullptr);
    }

    Strip& strip(const char* name) const { return *strips->findChild<Strip*>(QLatin1String(name)); }

    void press(const char* name) const
    {
        strips->findChild<QAbstractButton*>(QLatin1String(name))->click();
    }

    Appearance appearance{1.0};
    std::unique_ptr<StripStack> strips;
};

TEST_F(StripTests, areHiddenWhileThereIsNothingToSay)
{
    for (const char* const name : {"refreshError", "settingsError", "shortfall"}) {
        EXPECT_TRUE(strip(name).isHidden()) << name;
    }
}

TEST_F(StripTests, aFailedRefreshCanBeTriedAgainAndPutAway)
{
    selectTools();
    refresh();
    provider->setError("error connecting to api.github.com");
    refresh();
    ASSERT_EQ(
        strip("refreshError").text(),
        QStringLiteral("Showing cached data: error connecting to api.github.com"));
    EXPECT_FALSE(strip("refreshError").isHidden());
    press("refreshErrorDismiss");
    EXPECT_FALSE(model->refreshError());
    EXPECT_TRUE(strip("refreshError").isHidden());

    provider->setError("error connecting to api.github.com");
    refresh();
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
    Strip tall(Strip::Tone::error, QStringLiteral("tall"), appearance, nullptr);
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

}  // namespace
}  // namespace Tarnwick
