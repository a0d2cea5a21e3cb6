#include "Tarnwick/Interface/Look/ApplicationStyle.h"

#include <QImage>
#include <QPainter>
#include <QStyleOption>

#include <memory>

#include <gmock/gmock.h>

namespace Tarnwick {
namespace {

QImage card(const ApplicationStyle& style)
{
    QImage image(40, 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QStyleOptionFrame option;
    option.rect = image.rect();
    style.drawPrimitive(QStyle::PE_PanelTipLabel, &option, &painter, nullptr);
    return image;
}

TEST(ApplicationStyleTests, helpTextsAreOnARoundCardInTheMenusColours)
{
    Appearance appearance(1);
    const ApplicationStyle style(appearance);
    EXPECT_EQ(card(style).pixelColor(20, 10), QColor(0xFFFFFF));
    EXPECT_EQ(card(style).pixelColor(20, 0), QColor(0xD3DBD8));
    EXPECT_EQ(card(style).pixelColor(0, 0).alpha(), 0);
    appearance.setDark(true);
    EXPECT_EQ(card(style).pixelColor(20, 10), QColor(0x181F1D));
    EXPECT_EQ(card(style).pixelColor(20, 0), QColor(0x323C38));
}

TEST(ApplicationStyleTests, theCardHasSquareCornersWhereWindowsAreOpaque)
{
    Appearance appearance(1);
    appearance.setBlendsWindows(false);
    EXPECT_EQ(card(ApplicationStyle(appearance)).pixelColor(0, 0), QColor(0xD3DBD8));
}

TEST(ApplicationStyleTests, itOutlivesTheAppearance)
{
    auto appearance = std::make_unique<Appearance>(1);
    const ApplicationStyle style(*appearance);
    appearance.reset();
    EXPECT_EQ(card(style).pixelColor(20, 10).alpha(), 255);
}

}  // namespace
}  // namespace Tarnwick
