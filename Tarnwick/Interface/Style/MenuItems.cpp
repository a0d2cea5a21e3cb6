#include "Tarnwick/Interface/Style/MenuItems.h"

#include "Tarnwick/Interface/Style/Painting.h"
#include "Tarnwick/Interface/Style/SystemSymbol.h"

#include <QPainter>
#include <QStyleOptionMenuItem>

#include <cmath>

namespace Tarnwick::MenuItems {
namespace {

constexpr int itemPadding = 10;
constexpr int innerPadding = 8;
constexpr int checkPlace = 16;
constexpr int chevronSize = 12;
constexpr int dividerRoom = 5;

/// The text before the tab, without mnemonics.
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

/// A separator with a text is a section title.
bool isLabel(const QStyleOptionMenuItem& item)
{
    return item.menuItemType == QStyleOptionMenuItem::Separator && !item.text.isEmpty();
}

void drawAction(QPainter& painter, const QStyleOptionMenuItem& item)
{
    const Palette& palette = appearance().palette();
    const bool isEnabled = item.state.testFlag(QStyle::State_Enabled);
    if (isEnabled && item.state.testFlag(QStyle::State_Selected)) {
        Painting::fillRounded(painter, QRectF(item.rect), 6, palette.menuHighlight);
    }
    const QColor color = isEnabled ? palette.textPrimary : palette.textTertiary;
    const LineStyle body = appearance().line(TextStyle::body, TextWeight::regular);
    QRectF line = QRectF(item.rect).adjusted(itemPadding, 0, -itemPadding, 0);
    const double middle = QRectF(item.rect).center().y();
    if (item.menuHasCheckableItems) {
        const double size = appearance().scaled(checkPlace);
        if (item.checked) {
            SystemSymbol{QStringLiteral("checkmark"), 2.25}.draw(
                painter, QRectF(line.left(), middle - size / 2, size, size), palette.textLink);
        }
        line.setLeft(line.left() + size + innerPadding);
    }
    line.setTop(middle - body.height / 2.0);
    Painting::text(painter, line, titleOf(item), body, color);
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        const double size = appearance().scaled(chevronSize);
        SystemSymbol{QStringLiteral("tarnwick-chevron")}.draw(
            painter,
            QRectF(line.right() - size, middle - size / 2, size, size),
            palette.textSecondary);
    } else if (const QString shortcut = shortcutOf(item); !shortcut.isEmpty()) {
        const LineStyle caption = appearance().line(TextStyle::caption, TextWeight::regular);
        line.setTop(middle - caption.height / 2.0);
        Painting::text(painter, line, shortcut, caption, palette.textTertiary, Qt::AlignRight);
    }
}

}  // namespace

void draw(QPainter& painter, const QStyleOptionMenuItem& item)
{
    const Palette& palette = appearance().palette();
    if (isLabel(item)) {
        const LineStyle style = appearance().line(TextStyle::caption, TextWeight::bold);
        const QRectF line = QRectF(item.rect).adjusted(
            itemPadding, (item.rect.height() - style.height) / 2.0, 0, 0);
        Painting::text(painter, line, titleOf(item), style, palette.textSecondary);
    } else if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        Painting::hairline(
            painter,
            item.rect.left() + itemPadding,
            item.rect.top() + dividerRoom,
            item.rect.width() - 2 * itemPadding,
            palette.hairline);
    } else {
        drawAction(painter, item);
    }
}

QSize size(const QStyleOptionMenuItem& item)
{
    // Qt skips items without a width.
    if (isLabel(item)) {
        return {1, appearance().scaled(24)};
    }
    if (item.menuItemType == QStyleOptionMenuItem::Separator) {
        return {1, 2 * dividerRoom + 1};
    }
    double width =
        2 * itemPadding
        + Painting::width(titleOf(item), appearance().line(TextStyle::body, TextWeight::regular));
    if (item.menuHasCheckableItems) {
        width += appearance().scaled(checkPlace) + innerPadding;
    }
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        width += 2 * innerPadding + appearance().scaled(chevronSize);
    } else if (const QString shortcut = shortcutOf(item); !shortcut.isEmpty()) {
        width +=
            2 * innerPadding
            + Painting::width(shortcut, appearance().line(TextStyle::caption, TextWeight::regular));
    }
    return {static_cast<int>(std::ceil(width)), appearance().scaled(28)};
}

}  // namespace Tarnwick::MenuItems
