#include "Tarnwick/Interface/Panel/PanelFooter.h"

#include "Tarnwick/Interface/Look/Appearance.h"

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

using namespace std::chrono_literals;

TEST(PanelFooterTests, saysHowManyAndHowOld)
{
    const Appearance appearance(1.0);
    const PullRequestKit::Date then(1'710'244'800s);
    PanelFooter footer([then] { return then + 2min; }, appearance, nullptr);
    EXPECT_EQ(footer.countText(), QStringLiteral("0 pull requests"));
    EXPECT_EQ(footer.updatedText(), QString());
    footer.setCount(1);
    footer.setRefreshed(then);
    EXPECT_EQ(footer.countText(), QStringLiteral("1 pull request"));
    EXPECT_EQ(footer.updatedText(), QStringLiteral("Updated 2 minutes ago"));
    EXPECT_EQ(footer.accessibleName(), QStringLiteral("1 pull request, Updated 2 minutes ago"));
}

TEST(PanelFooterTests, ticksOnlyWhileItCanBeSeenAndHasSomethingToTell)
{
    const Appearance appearance(1.0);
    const PullRequestKit::Date then(1'710'244'800s);
    PanelFooter footer([then] { return then + 2min; }, appearance, nullptr);
    footer.show();
    EXPECT_FALSE(footer.isTicking());
    footer.setRefreshed(then);
    EXPECT_TRUE(footer.isTicking());
    footer.hide();
    EXPECT_FALSE(footer.isTicking());
    footer.setRefreshed(then + 1min);
    EXPECT_FALSE(footer.isTicking());
    footer.show();
    EXPECT_TRUE(footer.isTicking());
}

}  // namespace
}  // namespace Tarnwick
