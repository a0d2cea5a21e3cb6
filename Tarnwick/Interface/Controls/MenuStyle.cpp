#include "Tarnwick/Interface/Controls/MenuStyle.h"

#include "Tarnwick/Interface/Look/Painting.h"
#include "Tarnwick/Interface/Look/SystemSymbol.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOptionMenuItem>

#include <cmath>

namespace Tarnwick {
namespace {

constexpr int itemPadding = 10;
constexpr int innerPadding = 8;
constexpr int checkPlace = 16;
constexpr int chevronSize = 12;
constexpr int panelPadding = 5;
constexpr int dividerRoom = 5;

/// The text before the tab, without the marks of mnemonics.
QString titleOf(const QStyleOptionMenuItem& item)
{
    QString title = item.text.section(QLatin1Char('\t'), 0, 0);
    title.remove(QLatin1Char('&'));
    return title;
}

QString shortcutOf(const QStyleOptionMenuItem& item)
{
    return item.text.section(QLatin1Char('\t'), 1);
}

/// A divider with a text is the label of what follows.
bool isLabel(const QStyleOptionMenuItem& item)
{
    return item.menuItemType == QStyleOptionMenuItem::Separator && !item.text.isEmpty();
}

}  // namespace

MenuStyle::MenuStyle(const Appearance& appearance)
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    , _appearance(appearance)
{}

void MenuStyle::drawControl(
    ControlElement element,
    const QStyleOption* option,
    QPainter* painter,
    const QWidget* widget) const
{
    if (element == CE_MenuEmptyArea) {
        return;
    }
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (element != CE_MenuItem || item == nullptr) {
        QProxyStyle::drawControl(element, option, painter, widget);
        return;
    }
    const Palette& palette = _appearance.palette();
    if (isLabel(*item)) {
        const LineStyle style = _appearance.line(TextStyle::caption, TextWeight::bold);
        const QRectF line =
            QRectF(item->rect)
                .adjusted(itemPadding, (item->rect.height() - style.height) / 2.0, 0, 0);
        Painting::text(*painter, line, titleOf(*item), style, palette.textSecondary);
        return;
    }
    if (item->menuItemType == QStyleOptionMenuItem::Separator) {
        Painting::hairline(
            *painter,
            item->rect.left() + itemPadding,
            item->rect.top() + dividerRoom,
            item->rect.width() - 2 * itemPadding,
            palette.hairline);
        return;
    }
    drawItem(*item, *painter);
}

void MenuStyle::drawItem(const QStyleOptionMenuItem& item, QPainter& painter) const
{
    const Palette& palette = _appearance.palette();
    const bool isEnabled = item.state.testFlag(State_Enabled);
    if (isEnabled && item.state.testFlag(State_Selected)) {
        Painting::fillRounded(painter, QRectF(item.rect), 6, palette.menuHighlight);
    }
    const QColor colour = isEnabled ? palette.textPrimary : palette.textTertiary;
    const LineStyle body = _appearance.line(TextStyle::body, TextWeight::regular);
    QRectF line = QRectF(item.rect).adjusted(itemPadding, 0, -itemPadding, 0);
    const double middle = QRectF(item.rect).center().y();
    if (item.menuHasCheckableItems) {
        const double size = _appearance.scaled(checkPlace);
        if (item.checked) {
            SystemSymbol{QStringLiteral("checkmark"), 2.25}.draw(
                painter, QRectF(line.left(), middle - size / 2, size, size), palette.textLink);
        }
        line.setLeft(line.left() + size + innerPadding);
    }
    line.setTop(middle - body.height / 2.0);
    Painting::text(painter, line, titleOf(item), body, colour);
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        const double size = _appearance.scaled(chevronSize);
        SystemSymbol{QStringLiteral("tarnwick-chevron")}.draw(
            painter,
            QRectF(line.right() - size, middle - size / 2, size, size),
            palette.textSecondary);
    } else if (const QString shortcut = shortcutOf(item); !shortcut.isEmpty()) {
        const LineStyle caption = _appearance.line(TextStyle::caption, TextWeight::regular);
        line.setTop(middle - caption.height / 2.0);
        Painting::text(painter, line, shortcut, caption, palette.textTertiary, Qt::AlignRight);
    }
}

void MenuStyle::drawPrimitive(
    PrimitiveElement element,
    const QStyleOption* option,
    QPainter* painter,
    const QWidget* widget) const
{
    if (element == PE_PanelMenu) {
        const QRectF panel(option->rect);
        if (!_appearance.blendsWindows()) {
            // What a cut at whole pixels leaves of the corners' outside would be black.
            painter->fillRect(panel, _appearance.palette().strongLine);
        }
        Painting::fillRounded(*painter, panel, radius, _appearance.palette().surfaceMenu);
        Painting::strokeInside(*painter, panel, radius, 1, _appearance.palette().strongLine);
        return;
    }
    if (element == PE_FrameMenu) {
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

int MenuStyle::pixelMetric(
    PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_MenuPanelWidth:
    case PM_MenuDesktopFrameWidth:
    case PM_SubMenuOverlap:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return panelPadding;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

QSize MenuStyle::sizeFromContents(
    ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const
{
    const auto* const item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    if (type != CT_MenuItem || item == nullptr) {
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
    // Qt leaves out items without a width.
    if (isLabel(*item)) {
        return {1, _appearance.scaled(24)};
    }
    if (item->menuItemType == QStyleOptionMenuItem::Separator) {
        return {1, 2 * dividerRoom + 1};
    }
    double width =
        2 * itemPadding
        + Painting::width(titleOf(*item), _appearance.line(TextStyle::body, TextWeight::regular));
    if (item->menuHasCheckableItems) {
        width += _appearance.scaled(checkPlace) + innerPadding;
    }
    if (item->menuItemType == QStyleOptionMenuItem::SubMenu) {
        width += 2 * innerPadding + _appearance.scaled(chevronSize);
    } else if (const QString shortcut = shortcutOf(*item); !shortcut.isEmpty()) {
        width +=
            2 * innerPadding
            + Painting::width(shortcut, _appearance.line(TextStyle::caption, TextWeight::regular));
    }
    return {static_cast<int>(std::ceil(width)), _appearance.scaled(28)};
}

int MenuStyle::styleHint(
    StyleHint hint,
    const QStyleOption* option,
    const QWidget* widget,
    QStyleHintReturn* returnData) const
{
    switch (hint) {
    case SH_Menu_FlashTriggeredItem:
    case SH_Menu_Mask:
        return 0;
    case SH_Menu_SupportsSections:
    case SH_Menu_MouseTracking:
    case SH_Menu_SloppySubMenus:
    case SH_Menu_FillScreenWithScroll:
        return 1;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

}  // namespace Tarnwick
