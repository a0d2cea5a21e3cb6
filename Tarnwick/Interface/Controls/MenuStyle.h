#pragma once

#include <QProxyStyle>

class QStyleOptionMenuItem;

namespace Tarnwick {

class Appearance;

/// Draws the program's menus. Belongs to a menu and its submenus only.
class MenuStyle final : public QProxyStyle {
    Q_OBJECT

public:
    /// Of a menu's corners.
    static constexpr double radius = 10;

    explicit MenuStyle(const Appearance& appearance);

    void drawControl(
        ControlElement element,
        const QStyleOption* option,
        QPainter* painter,
        const QWidget* widget) const override;
    void drawPrimitive(
        PrimitiveElement element,
        const QStyleOption* option,
        QPainter* painter,
        const QWidget* widget) const override;
    int pixelMetric(
        PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    QSize sizeFromContents(
        ContentsType type,
        const QStyleOption* option,
        const QSize& size,
        const QWidget* widget) const override;
    int styleHint(
        StyleHint hint,
        const QStyleOption* option,
        const QWidget* widget,
        QStyleHintReturn* returnData) const override;

private:
    void drawItem(const QStyleOptionMenuItem& item, QPainter& painter) const;

    const Appearance& _appearance;
};

}  // namespace Tarnwick
