#pragma once

#include <QSize>

class QPainter;
class QStyleOptionMenuItem;

namespace Tarnwick {

/// Draws and measures menu items for the application's style. Main thread only.
namespace MenuItems {

/// Of a menu.
constexpr double cornerRadius = 10;

/// Between a menu's edge and its items.
constexpr int panelPadding = 5;

void draw(QPainter& painter, const QStyleOptionMenuItem& item);

QSize size(const QStyleOptionMenuItem& item);

}  // namespace MenuItems

}  // namespace Tarnwick
