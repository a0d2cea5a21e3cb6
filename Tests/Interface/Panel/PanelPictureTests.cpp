#include "Support/Pictures.h"
#include "Tarnwick/Interface/Controls/PushButton.h"
#include "Tarnwick/Interface/Panel/Alert.h"
#include "Tarnwick/Interface/Panel/EditorOverlay.h"
#include "Tarnwick/Interface/Panel/InfoBar.h"
#include "Tarnwick/Interface/Panel/Notice.h"
#include "Tarnwick/Interface/Panel/PanelFooter.h"
#include "Tarnwick/Interface/Panel/PanelHeader.h"
#include "Tarnwick/Interface/Style/ApplicationStyle.h"

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

/// On the panel's ground.
void show(Notice& notice, const NoticeContent& content)
{
    notice.setBackgroundRole(QPalette::Base);
    notice.setAutoFillBackground(true);
    notice.show(content);
}

QImage partsOfThePanel(bool isDark, double scaleFactor)
{
    Appearance& appearance = setApplicationStyle(1.0);
    appearance.setDark(isDark);
    std::vector<QImage> pictures;
    const auto add = [&](QWidget& widget, int height) {
        widget.resize(420, height);
        pictures.push_back(pictureOf(widget, scaleFactor));
    };

    PanelHeader header(nullptr);
    header.find().show();
    add(header, header.sizeHint().height());

    const MenuState::Kind unavailable = MenuState::Kind::unavailable;
    const char* const missing =
        "GitHub CLI (gh) was not found. Install it, then run gh auth login.";
    for (const auto& content :
         {panelContent({MenuState::Kind::loaded, {}}, false, true),
          panelContent({unavailable, missing}, false, false)}) {
        Notice notice(nullptr);
        show(notice, *content);
        add(notice, 280);
    }

    QWidget panel;
    InfoBar infoBar(InfoBar::Tone::error, QStringLiteral("refreshError"), &panel);
    infoBar.setAction(QStringLiteral("Try Again"));
    infoBar.setText(QStringLiteral("Showing cached data: error connecting to api.github.com"));
    infoBar.hide();
    add(infoBar, infoBar.heightForWidth(420));

    const PullRequestKit::Date then(1'710'244'800s);
    PanelFooter footer([then] { return then + 14min; }, nullptr);
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
    panel.setPalette(QColor(0xEFEFEF));
    panel.resize(420, height);
    card.show();
    panel.show();
    return pictureOf(panel);
}

QImage alert()
{
    QWidget panel;
    Alert alert(
        QStringLiteral("Unable to Open Editor"),
        {.primary = QStringLiteral("OK"),
         .cancel = {},
         .copyHelp = QStringLiteral("Copy error title and message")},
        &panel);
    alert.setMessage(QStringLiteral("The repository directory does not exist at "
                                    "/home/mira/projects/tidewatch. Open Menu > Repositories and "
                                    "set Project Directory first."));
    return cardOver(alert, panel, 240);
}

QImage editorOverlay()
{
    QWidget panel;
    EditorOverlay overlay(&panel);
    overlay.setProgress(QStringLiteral("Preparing repository…"));
    return cardOver(overlay, panel, 200);
}

QImage cards(bool isDark)
{
    Appearance& appearance = setApplicationStyle(1.0);
    appearance.setDark(isDark);
    appearance.setPreferences({.reducedMotion = true, .higherContrast = false});
    return stacked({alert(), editorOverlay()});
}

TEST(PanelPictureTests, theParts)
{
    expectPicture(partsOfThePanel(false, 1), "panel-parts-light");
    expectPicture(partsOfThePanel(true, 1.5), "panel-parts-dark-150");
}

/// The empty list while everything is hidden, and the footer in its ways to stand.
QImage hiddenParts(double scaleFactor)
{
    std::vector<QImage> pictures;
    const auto add = [&](QWidget& widget, int height) {
        widget.resize(appearance().scaled(360), height);
        pictures.push_back(pictureOf(widget, scaleFactor));
    };
    Notice notice(nullptr);
    show(notice, *panelContent({MenuState::Kind::loaded, {}}, false, false, {.filters = 9}));
    add(notice, appearance().scaled(280));
    for (const bool areShown : {false, true}) {
        const PullRequestKit::Date then(1'710'244'800s);
        PanelFooter footer([then] { return then + 59min; }, nullptr);
        footer.setCount(1000);
        footer.setHidden({.filters = 128}, areShown);
        footer.setRefreshed(then);
        add(footer, footer.sizeHint().height());
    }
    return stacked(pictures);
}

TEST(PanelPictureTests, theHidden)
{
    expectPicture(hiddenParts(1), "panel-hidden-light");
    Appearance& dark = setApplicationStyle(1.5);
    dark.setDark(true);
    dark.setPreferences({.reducedMotion = true, .higherContrast = true});
    expectPicture(hiddenParts(1), "panel-hidden-dark-contrast");
}

TEST(PanelPictureTests, theCards)
{
    expectPicture(cards(true), "cards-dark");
}

}  // namespace
}  // namespace Tarnwick
