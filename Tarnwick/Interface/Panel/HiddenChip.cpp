#include "Tarnwick/Interface/Panel/HiddenChip.h"

#include "Tarnwick/Interface/Controls/HelpText.h"
#include "Tarnwick/Interface/Look/Painting.h"
#include "Tarnwick/Interface/Panel/PanelWording.h"

#include <QPainter>

#include <cmath>

namespace Tarnwick {
namespace {

constexpr int chipHeight = 20;
constexpr int padding = 8;

LineStyle lineOf(const Appearance& appearance)
{
    return appearance.line(TextStyle::caption, TextWeight::medium);
}

}  // namespace

HiddenChip::HiddenChip(const Appearance& appearance, QWidget* parent)
    : ControlButton(appearance, parent)
{
    setObjectName(QStringLiteral("hiddenChip"));
    setFocusPolicy(Qt::TabFocus);
    hide();
}

void HiddenChip::setHidden(const HiddenCounts& hidden, bool areShown)
{
    const QString help = PanelWording::hiddenHelp(hidden);
    setText(PanelWording::hiddenChip(hidden, areShown));
    setAccessibleName(PanelWording::hiddenChipName(hidden, areShown));
    setAccessibleDescription(help);
    setToolTip(helpMarkup(help));
    setVisible(hidden.total() > 0);
    update();
}

QSize HiddenChip::visibleSize() const
{
    const double textWidth = Painting::width(text(), lineOf(appearance()));
    return {static_cast<int>(std::ceil(textWidth)) + 2 * padding, appearance().scaled(chipHeight)};
}

void HiddenChip::paintVisible(QPainter& painter, const QRectF& visible)
{
    const Palette& palette = appearance().palette();
    const double filled = isDown() ? 1 : hover();
    Painting::fillRounded(
        painter, visible, radius(), mixed(palette.chip, palette.menuHighlight, filled));
    if (appearance().higherContrast()) {
        Painting::strokeInside(painter, visible, radius(), 1, palette.controlLine);
    }
    const LineStyle style = lineOf(appearance());
    const QRectF line(
        visible.left() + padding,
        visible.top() + (visible.height() - style.height) / 2,
        visible.width() - 2 * padding,
        style.height);
    Painting::text(
        painter, line, text(), style, mixed(palette.textSecondary, palette.textPrimary, filled));
}

}  // namespace Tarnwick
