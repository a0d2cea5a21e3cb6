#include "Tarnwick/Interface/Look/ApplicationStyle.h"

#include "Tarnwick/Interface/Look/Painting.h"

#include <QStyleFactory>
#include <QStyleOption>
#include <QWidget>

namespace Tarnwick {
namespace {

constexpr double radius = 6;

/// Around the text. Qt adds a pixel.
constexpr int padding = 5;

}  // namespace

ApplicationStyle::ApplicationStyle(const Appearance& appearance)
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    , _appearance(&appearance)
{}

void ApplicationStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    // Qt's own label, whose class is not public.
    if (widget->inherits("QTipLabel")) {
        widget->setAttribute(Qt::WA_TranslucentBackground);
    }
}

void ApplicationStyle::drawPrimitive(
    PrimitiveElement element,
    const QStyleOption* option,
    QPainter* painter,
    const QWidget* widget) const
{
    if (element != PE_PanelTipLabel || !_appearance) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    const QRectF card(option->rect);
    const double corner = _appearance->blendsWindows() ? radius : 0;
    Painting::fillRounded(*painter, card, corner, _appearance->palette().surfaceMenu);
    Painting::strokeInside(*painter, card, corner, 1, _appearance->palette().strongLine);
}

int ApplicationStyle::pixelMetric(
    PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    return metric == PM_ToolTipLabelFrameWidth ? padding
                                               : QProxyStyle::pixelMetric(metric, option, widget);
}

int ApplicationStyle::styleHint(
    StyleHint hint,
    const QStyleOption* option,
    const QWidget* widget,
    QStyleHintReturn* returnData) const
{
    switch (hint) {
    case SH_ToolTip_Mask:
        return 0;
    case SH_ToolTipLabel_Opacity:
        return 255;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

}  // namespace Tarnwick
