#include "Support/Pictures.h"
#include "Tarnwick/Interface/Look/Appearance.h"
#include "Tarnwick/Interface/Panel/Alert.h"
#include "Tarnwick/Interface/Panel/AuthenticationPanel.h"
#include "Tarnwick/Interface/Panel/EditorOverlay.h"
#include "Tarnwick/Interface/Panel/PanelFooter.h"
#include "Tarnwick/Interface/Panel/PanelHeader.h"
#include "Tarnwick/Interface/Panel/StatusPanel.h"
#include "Tarnwick/Interface/Panel/Strip.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace Tarnwick {
namespace {

using namespace std::chrono_literals;

/// The parts of the panel below each other, each at the panel's width.
QImage stacked(const std::vector<QImage>& pictures)
{
    int height = 0;
    for (const QImage& picture : pictures) {
        height += picture.height();
    }
    QImage sheet(pictures.front().width(), height, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&sheet);
    int y = 0;
    for (QImage picture : pictures) {
        picture.setDevicePixelRatio(1);
        painter.drawImage(0, y, picture);
        y += picture.height();
    }
    return sheet;
}

QImage partsOfThePanel(bool isDark, double scaleFactor)
{
    Appearance appearance(1.0);
    appearance.setDark(isDark);
    std::vector<QImage> pictures;
    const auto add = [&](QWidget& widget, int height) {
        widget.resize(420, height);
        pictures.push_back(pictureOf(widget, scaleFactor));
    };

    PanelHeader header(appearance, nullptr);
    header.setFindShown(true);
    add(header, header.sizeHint().height());

    StatusPanel status(appearance, nullptr);
    status.show(std::get<StatusContent>(panelContent({MenuState::Kind::loaded, {}}, false, true)));
    add(status, 280);

    AuthenticationPanel authentication(appearance, nullptr);
    authentication.show(std::get<AuthenticationContent>(panelContent(
        {MenuState::Kind::unavailable,
         "GitHub CLI (gh) was not found. Install it, then run gh auth login."},
        false,
        false)));
    add(authentication, 280);

    Strip strip(Strip::Tone::error, QStringLiteral("refreshError"), appearance, nullptr);
    strip.setAction(QStringLiteral("Try Again"));
    strip.setText(QStringLiteral("Showing cached data: error connecting to api.github.com"));
    strip.hide();
    add(strip, strip.heightForWidth(420));

    const PullRequestKit::Date then(1'710'244'800s);
    PanelFooter footer([then] { return then + 14min; }, appearance, nullptr);
    footer.setCount(7);
    footer.setRefreshed(then);
    add(footer, footer.sizeHint().height());
    return stacked(pictures);
}

/// A card as it stands over a panel of this height.
template<typename Card>
QImage cardOver(Card& card, QWidget& panel, int height)
{
    panel.setAttribute(Qt::WA_DontShowOnScreen);
    panel.resize(420, height);
    card.show();
    panel.show();
    return pictureOf(panel);
}

QImage alert(const Appearance& appearance)
{
    QWidget panel;
    Alert alert(
        QStringLiteral("Unable to Open Editor"),
        {.primary = QStringLiteral("OK"),
         .cancel = {},
         .copyHelp = QStringLiteral("Copy error title and message")},
        appearance,
        &panel);
    alert.setMessage(QStringLiteral("The repository directory does not exist at "
                                    "/home/mira/projects/tidewatch. Open Menu > Repositories and "
                                    "set Project Directory first."));
    return cardOver(alert, panel, 240);
}

QImage editorOverlay(const Appearance& appearance)
{
    QWidget panel;
    EditorOverlay overlay(appearance, &panel);
    overlay.setProgress(QStringLiteral("Preparing repository…"));
    return cardOver(overlay, panel, 200);
}

QImage cards(bool isDark)
{
    Appearance appearance(1.0);
    appearance.setDark(isDark);
    appearance.setWishes({.reducedMotion = true, .higherContrast = false});
    return stacked({alert(appearance), editorOverlay(appearance)});
}

TEST(PanelPictureTests, theParts)
{
    expectPicture(partsOfThePanel(false, 1), "panel-parts-light");
    expectPicture(partsOfThePanel(true, 1.5), "panel-parts-dark-150");
}

/// The empty list while everything is hidden, and the footer in its ways to stand.
QImage hiddenParts(const Appearance& appearance, double scaleFactor)
{
    std::vector<QImage> pictures;
    const auto add = [&](QWidget& widget, int height) {
        widget.resize(appearance.scaled(360), height);
        pictures.push_back(pictureOf(widget, scaleFactor));
    };
    StatusPanel status(appearance, nullptr);
    status.show(std::get<StatusContent>(
        panelContent({MenuState::Kind::loaded, {}}, false, false, {.filters = 9})));
    add(status, appearance.scaled(280));
    for (const bool areShown : {false, true}) {
        const PullRequestKit::Date then(1'710'244'800s);
        PanelFooter footer([then] { return then + 59min; }, appearance, nullptr);
        footer.setCount(1000);
        footer.setHidden({.filters = 128}, areShown);
        footer.setRefreshed(then);
        add(footer, footer.sizeHint().height());
    }
    return stacked(pictures);
}

TEST(PanelPictureTests, theHidden)
{
    Appearance light(1.0);
    expectPicture(hiddenParts(light, 1), "panel-hidden-light");
    Appearance dark(1.5);
    dark.setDark(true);
    dark.setWishes({.reducedMotion = true, .higherContrast = true});
    expectPicture(hiddenParts(dark, 1), "panel-hidden-dark-contrast");
}

TEST(PanelPictureTests, theCards)
{
    expectPicture(cards(true), "cards-dark");
}

}  // namespace
}  // namespace Tarnwick
