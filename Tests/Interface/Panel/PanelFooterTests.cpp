#include "Tarnwick/Interface/Panel/PanelFooter.h"

#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QSignalSpy>

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

using namespace std::chrono_literals;

TEST(PanelFooterTests, saysHowManyAndHowOld)
{
    const PullRequestKit::Date then(1'710'244'800s);
    PanelFooter footer([then] { return then + 2min; }, nullptr);
    EXPECT_EQ(footer.countText(), QString()) << "no list is known";
    EXPECT_EQ(footer.updatedText(), QString());
    EXPECT_EQ(footer.accessibleName(), QString());
    footer.setCount(0);
    EXPECT_EQ(footer.countText(), QStringLiteral("0 pull requests"));
    EXPECT_EQ(footer.accessibleName(), QStringLiteral("0 pull requests"));
    footer.setCount(1);
    footer.setRefreshed(then);
    EXPECT_EQ(footer.countText(), QStringLiteral("1 pull request"));
    EXPECT_EQ(footer.updatedText(), QStringLiteral("Updated 2 minutes ago"));
    EXPECT_EQ(footer.accessibleName(), QStringLiteral("1 pull request, Updated 2 minutes ago"));
}

TEST(PanelFooterTests, ticksOnlyWhileItCanBeSeenAndHasSomethingToTell)
{
    const PullRequestKit::Date then(1'710'244'800s);
    PanelFooter footer([then] { return then + 2min; }, nullptr);
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

TEST(PanelFooterTests, hasAChipWhileSomethingIsHidden)
{
    PanelFooter footer([] { return PullRequestKit::Date(); }, nullptr);
    const auto* const chip = footer.findChild<QAbstractButton*>(QStringLiteral("hiddenChip"));
    ASSERT_NE(chip, nullptr);
    EXPECT_TRUE(chip->isHidden());
    footer.setHidden({.filters = 3}, false);
    EXPECT_FALSE(chip->isHidden());
    EXPECT_EQ(chip->text(), QStringLiteral("3 hidden"));
    EXPECT_EQ(chip->accessibleName(), QStringLiteral("Show 3 hidden pull requests"));
    EXPECT_EQ(chip->accessibleDescription(), QStringLiteral("3 by filters"));
    EXPECT_TRUE(chip->toolTip().contains(QStringLiteral("3 by filters")));
    footer.setHidden({.filters = 3}, true);
    EXPECT_EQ(chip->text(), QStringLiteral("Hide 3"));
    footer.setHidden({}, false);
    EXPECT_TRUE(chip->isHidden());
}

TEST(PanelFooterTests, theLongestTextsFitAtTheLeastWidth)
{
    for (const double scale : {1.0, 1.25, 1.5}) {
        const Appearance& appearance = setApplicationStyle(scale);
        const PullRequestKit::Date then(1'710'244'800s);
        PanelFooter footer([then] { return then + 59min; }, nullptr);
        footer.setCount(1000);
        footer.setHidden({.filters = 128}, true);
        footer.setRefreshed(then);
        footer.resize(appearance.scaled(360), footer.sizeHint().height());
        EXPECT_TRUE(footer.showsUpdated()) << scale;
        footer.resize(appearance.scaled(300), footer.sizeHint().height());
        EXPECT_FALSE(footer.showsUpdated()) << scale;
    }
}

}  // namespace
}  // namespace Tarnwick
