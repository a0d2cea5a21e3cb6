#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include <QApplication>
#include <QEvent>
#include <QImage>
#include <QPainter>
#include <QPointer>
#include <QStyleOption>
#include <QWidget>

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

TEST(ApplicationStyleTests, toolTipsAreOnARoundCardInTheMenusColors)
{
    ApplicationStyle style(1);
    EXPECT_EQ(card(style).pixelColor(20, 10), QColor(0xFFFFFF));
    EXPECT_EQ(card(style).pixelColor(20, 0), QColor(0xD3DBD8));
    EXPECT_EQ(card(style).pixelColor(0, 0).alpha(), 0);
    style.appearance().setDark(true);
    EXPECT_EQ(card(style).pixelColor(20, 10), QColor(0x181F1D));
    EXPECT_EQ(card(style).pixelColor(20, 0), QColor(0x323C38));
}

TEST(ApplicationStyleTests, theCardHasSquareCornersWhereWindowsAreOpaque)
{
    ApplicationStyle style(1);
    style.appearance().setBlendsWindows(false);
    EXPECT_EQ(card(style).pixelColor(0, 0), QColor(0xD3DBD8));
}

TEST(ApplicationStyleTests, everyWidgetHearsOfAnotherAppearance)
{
    class Listener final : public QWidget {
    public:
        int changes = 0;

    protected:
        void changeEvent(QEvent* event) override
        {
            changes += event->type() == QEvent::StyleChange ? 1 : 0;
        }
    } listener;

    Appearance& appearance = setApplicationStyle(1);
    const int before = listener.changes;
    appearance.setDark(true);
    appearance.setPreferences({.reducedMotion = true, .higherContrast = true});
    appearance.setTextScale(1.5);
    appearance.setTextScale(1.5);
    EXPECT_EQ(listener.changes, before + 3);
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), QColor(0x0F1312));
}

TEST(ApplicationStyleTests, aWidgetMayDeleteAnotherOnHearingOfIt)
{
    /// The first of the two that hears of it deletes the other.
    class Rival final : public QWidget {
    public:
        QPointer<QWidget> other;

    protected:
        void changeEvent(QEvent* event) override
        {
            if (event->type() == QEvent::StyleChange) {
                delete other.data();
            }
        }
    };

    Appearance& appearance = setApplicationStyle(1);
    QPointer<Rival> one = new Rival;
    QPointer<Rival> another = new Rival;
    one->other = another.data();
    another->other = one.data();
    appearance.setDark(true);
    EXPECT_NE(one.isNull(), another.isNull());
    delete one.data();
    delete another.data();
}

}  // namespace
}  // namespace Tarnwick
