#include "Tarnwick/Interface/Panel/CardOverlay.h"

#include "Tarnwick/Interface/Panel/Alert.h"
#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <QGraphicsEffect>
#include <QPointer>
#include <QTest>

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

class CardOverlayTests : public testing::Test {
protected:
    CardOverlayTests()
        : alert(
              QStringLiteral("Unable to Open Editor"),
              {.primary = QStringLiteral("OK"), .cancel = {}, .copyHelp = {}},
              &panel)
    {
        panel.resize(420, 400);
        panel.show();
    }

    QWidget* leavingCard() const
    {
        return panel.findChild<QWidget*>(QStringLiteral("leavingCard"));
    }

    QWidget panel;
    Alert alert;
};

TEST_F(CardOverlayTests, aCardFadesOutAndIsOutOfUseAtOnce)
{
    alert.show();
    EXPECT_EQ(leavingCard(), nullptr);
    alert.hide();
    EXPECT_FALSE(alert.isVisible());
    const QPointer<QWidget> leaving = leavingCard();
    ASSERT_NE(leaving, nullptr);
    EXPECT_TRUE(leaving->isVisible());
    EXPECT_TRUE(leaving->testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(leaving->geometry(), panel.rect());
    EXPECT_TRUE(QTest::qWaitFor([&] { return leaving == nullptr; }));
}

TEST_F(CardOverlayTests, thePictureOfACardIsTheCard)
{
    alert.show();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !alert.graphicsEffect()->isEnabled(); }));
    const QImage shown = panel.grab().toImage();
    alert.hide();
    ASSERT_NE(leavingCard(), nullptr);
    const QImage leaving = panel.grab().toImage();
    const QPoint inCard = alert.card().center();
    EXPECT_EQ(
        leaving.pixelColor(alert.card().topLeft() + QPoint(8, 8)),
        shown.pixelColor(alert.card().topLeft() + QPoint(8, 8)));
    EXPECT_EQ(leaving.pixelColor(inCard), shown.pixelColor(inCard));
    EXPECT_EQ(leaving.pixelColor(2, 2), shown.pixelColor(2, 2)) << "the scrim";
}

TEST_F(CardOverlayTests, withoutMotionACardGoesAtOnce)
{
    setApplicationStyle(1.0).setPreferences({.reducedMotion = true, .higherContrast = false});
    alert.show();
    alert.hide();
    EXPECT_EQ(leavingCard(), nullptr);
}

TEST_F(CardOverlayTests, aCardThatGoesWithItsPanelLeavesNothing)
{
    alert.show();
    panel.hide();
    EXPECT_EQ(leavingCard(), nullptr);
}

}  // namespace
}  // namespace Tarnwick
