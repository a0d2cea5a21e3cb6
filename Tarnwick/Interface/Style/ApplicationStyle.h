#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QProxyStyle>

namespace Tarnwick {

/// The program's style: Fusion with the appearance's colors and its own menus, tool tips and focus
/// rings. Owned by the application; owns the appearance. Main thread only.
class ApplicationStyle final : public QProxyStyle {
    Q_OBJECT

public:
    /// The distance from a widget to the outer edge of its focus ring, in logical pixels.
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

/// Sets the application's style and palette, which Qt's own dialogs use, too. Best called before
/// the first widget is created, since each is polished again. The returned appearance lives as long
/// as the style. `textScale` overrides the desktop's text size. Main thread only.
Appearance& setApplicationStyle(std::optional<double> textScale = {});

}  // namespace Tarnwick
