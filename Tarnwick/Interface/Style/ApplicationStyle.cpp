#include "Tarnwick/Interface/Style/ApplicationStyle.h"

#include "Tarnwick/Interface/Style/MenuItems.h"
#include "Tarnwick/Interface/Style/Painting.h"

#include <QApplication>
#include <QPointer>
#include <QStyleFactory>
#include <QStyleOptionMenuItem>
#include <QToolTip>

#include <vector>

namespace Tarnwick {
namespace {

constexpr double helpRadius = 6;

/// The padding of tool tips, without the pixel that Qt adds.
constexpr int helpPadding = 5;

QPalette qtPalette(const Palette& colors)
{
    QPalette palette(colors.button, colors.surfaceChrome);
    palette.setColor(QPalette::WindowText, colors.textPrimary);
    palette.setColor(QPalette::Text, colors.textPrimary);
    palette.setColor(QPalette::ButtonText, colors.textPrimary);
    palette.setColor(QPalette::Base, colors.surfaceList);
    palette.setColor(QPalette::AlternateBase, colors.surfaceChrome);
    palette.setColor(QPalette::PlaceholderText, colors.textTertiary);
    palette.setColor(QPalette::Highlight, colors.accent);
    palette.setColor(QPalette::HighlightedText, colors.onAccent);
    palette.setColor(QPalette::Link, colors.textLink);
    palette.setColor(QPalette::ToolTipBase, colors.surfaceMenu);
    palette.setColor(QPalette::ToolTipText, colors.textPrimary);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, colors.textTertiary);
    }
    return palette;
}

void drawCard(QPainter& painter, const QRectF& card, double radius, const Palette& palette)
{
    Painting::fillRounded(painter, card, radius, palette.surfaceMenu);
    Painting::strokeInside(painter, card, radius, 1, palette.strongLine);
}

const QStyleOptionMenuItem* menuItem(const QStyleOption* option)
{
    return qstyleoption_cast<const QStyleOptionMenuItem*>(option);
}

}  // namespace

ApplicationStyle::ApplicationStyle(std::optional<double> textScale)
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    , _appearance(textScale)
{
    connect(&_appearance, &Appearance::changed, this, &ApplicationStyle::announce);
}

void ApplicationStyle::polish(QApplication* /*application*/)
{
    const QPalette palette = qtPalette(_appearance.palette());
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    QToolTip::setFont(_appearance.line(TextStyle::caption, TextWeight::regular).font);
}

/// Like Qt when the style changes. Widgets may delete others in response.
void ApplicationStyle::announce()
{
    polish(qApp);
    const QWidgetList all = QApplication::allWidgets();
    const std::vector<QPointer<QWidget>> widgets(all.begin(), all.end());
    for (const QPointer<QWidget>& widget : widgets) {
        if (widget) {
            QEvent change(QEvent::StyleChange);
            QCoreApplication::sendEvent(widget, &change);
        }
    }
}

void ApplicationStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    // The class of tool tips is private.
    if (widget->inherits("QTipLabel") || widget->inherits("QMenu")) {
        widget->setAttribute(Qt::WA_TranslucentBackground);
    }
}

void ApplicationStyle::drawControl(
    ControlElement element,
    const QStyleOption* option,
    QPainter* painter,
    const QWidget* widget) const
{
    const QStyleOptionMenuItem* const item = menuItem(option);
    if (element == CE_MenuItem && item != nullptr) {
        MenuItems::draw(*painter, *item);
    } else if (element != CE_MenuEmptyArea) {
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void ApplicationStyle::drawPrimitive(
    PrimitiveElement element,
    const QStyleOption* option,
    QPainter* painter,
    const QWidget* widget) const
{
    const bool isBlended = _appearance.blendsWindows();
    const Palette& palette = _appearance.palette();
    switch (element) {
    case PE_PanelTipLabel:
        drawCard(*painter, QRectF(option->rect), isBlended ? helpRadius : 0, palette);
        break;
    case PE_PanelMenu:
        if (!isBlended) {
            // The corners are cut at whole pixels; what remains outside would be black.
            painter->fillRect(option->rect, palette.strongLine);
        }
        drawCard(*painter, QRectF(option->rect), MenuItems::cornerRadius, palette);
        break;
    case PE_FrameMenu:
        break;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

int ApplicationStyle::pixelMetric(
    PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_ToolTipLabelFrameWidth:
        return helpPadding;
    case PM_FocusFrameHMargin:
    case PM_FocusFrameVMargin:
        return ringRoom;
    case PM_MenuPanelWidth:
    case PM_MenuDesktopFrameWidth:
    case PM_SubMenuOverlap:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return MenuItems::panelPadding;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize ApplicationStyle::sizeFromContents(
    ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const
{
    const QStyleOptionMenuItem* const item = menuItem(option);
    return type == CT_MenuItem && item != nullptr
               ? MenuItems::size(*item)
               : QProxyStyle::sizeFromContents(type, option, size, widget);
}

int ApplicationStyle::styleHint(
    StyleHint hint,
    const QStyleOption* option,
    const QWidget* widget,
    QStyleHintReturn* returnData) const
{
    switch (hint) {
    case SH_ToolTip_Mask:
    case SH_Menu_FlashTriggeredItem:
    case SH_Menu_Mask:
        return 0;
    case SH_ToolTipLabel_Opacity:
        return 255;
    case SH_Menu_SupportsSections:
    case SH_Menu_MouseTracking:
    case SH_Menu_SloppySubMenus:
    case SH_Menu_FillScreenWithScroll:
        return 1;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

const Appearance& appearance()
{
    Q_ASSERT(QApplication::style()->inherits("Tarnwick::ApplicationStyle"));
    return static_cast<ApplicationStyle*>(QApplication::style())->appearance();
}

Appearance& setApplicationStyle(std::optional<double> textScale)
{
    auto* const style = new ApplicationStyle(textScale);
    QApplication::setStyle(style);
    return style->appearance();
}

}  // namespace Tarnwick
