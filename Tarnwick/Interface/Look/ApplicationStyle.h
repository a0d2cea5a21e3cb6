#pragma once

#include "Tarnwick/Interface/Look/Appearance.h"

#include <QPointer>
#include <QProxyStyle>

namespace Tarnwick {

/// Fusion, with help texts on a small card as menus are. Belongs to the application.
/// Main thread only.
class ApplicationStyle final : public QProxyStyle {
    Q_OBJECT

public:
    /// Draws as Fusion once the appearance is gone.
    explicit ApplicationStyle(const Appearance& appearance);

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;

    void drawPrimitive(
        PrimitiveElement element,
        const QStyleOption* option,
        QPainter* painter,
        const QWidget* widget) const override;
    int pixelMetric(
        PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(
        StyleHint hint,
        const QStyleOption* option,
        const QWidget* widget,
        QStyleHintReturn* returnData) const override;

private:
    QPointer<const Appearance> _appearance;
};

}  // namespace Tarnwick
