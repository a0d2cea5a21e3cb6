#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QProxyStyle>

namespace Tarnwick {

/// The one style of the program: Fusion in the colors of the appearance, with menus, help texts and
/// rings around what has the focus in the design's form. Belongs to the application, and the
/// appearance to it. Main thread only.
class ApplicationStyle final : public QProxyStyle {
    Q_OBJECT

public:
    /// Between a widget and the outer edge of its focus ring, in logical pixels.
    static constexpr int ringRoom = 4;

    explicit ApplicationStyle(std::optional<double> textScale = {});

    Appearance& appearance() { return _appearance; }

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    void polish(QApplication* application) override;

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
    void announce();

    Appearance _appearance;
};

/// Gives the application this style, and every widget, Qt's own dialogs included, its palette. Best
/// before the first widget, since each is polished anew. The appearance that it returns lives as
/// long as the style. Text is as large as the desktop's font makes it, but for a given scale. Main
/// thread only.
Appearance& setApplicationStyle(std::optional<double> textScale = {});

}  // namespace Tarnwick
