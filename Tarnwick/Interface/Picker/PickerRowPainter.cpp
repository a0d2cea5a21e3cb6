#include "Tarnwick/Interface/Picker/PickerRowPainter.h"

#include "Tarnwick/Interface/Picker/PickerWording.h"
#include "Tarnwick/Interface/Style/Painting.h"
#include "Tarnwick/Interface/Style/ResourceIcon.h"
#include "Tarnwick/Interface/Style/SystemSymbol.h"

#include <QFontMetricsF>

#include <cmath>

namespace Tarnwick {
namespace {

constexpr double fillRadius = 8;
constexpr double checkBoxRadius = 4;
constexpr double checkMarkStroke = 3;
constexpr int ringWidth = 2;

int widthOf(const QString& text, const LineStyle& style)
{
    return static_cast<int>(std::ceil(Painting::width(text, style)));
}

void drawElided(
    QPainter& painter,
    const QRect& line,
    const QString& text,
    const LineStyle& style,
    const QColor& color)
{
    const QString shown = QFontMetricsF(style.font).elidedText(text, Qt::ElideRight, line.width());
    Painting::text(painter, QRectF(line), shown, style, color);
}

}  // namespace

PickerRowGeometry PickerRowPainter::geometryOf(const PickerRow& row, int width) const
{
    if (row.isOwner()) {
        const QString button = PickerWording::ownerButton(row.owner->allSelected());
        return PickerRowGeometry::ofOwner(width, widthOf(button, _metrics.button), _metrics);
    }
    const RepositoryLabel& repository = *row.repository;
    return PickerRowGeometry::ofRepository(
        width, widthOf(repository.name, _metrics.name), repository.isPrivate, _metrics);
}

QString PickerRowPainter::toolTip(const PickerRow& row, int width) const
{
    const QString& name = row.isOwner() ? row.owner->owner : row.repository->name;
    return widthOf(name, _metrics.name) > geometryOf(row, width).name.width() ? name : QString();
}

void PickerRowPainter::draw(
    QPainter& painter, const PickerRow& row, const QPoint& origin, int width, State state) const
{
    painter.save();
    painter.translate(origin);
    const PickerRowGeometry geometry = geometryOf(row, width);
    if (row.isOwner()) {
        drawOwner(painter, *row.owner, geometry, state);
    } else {
        drawFill(painter, geometry.fill, state);
        drawRepository(painter, *row.repository, geometry);
    }
    painter.restore();
}

void PickerRowPainter::drawFill(QPainter& painter, const QRect& fill, State state) const
{
    const Palette& palette = appearance().palette();
    if (state.isCurrent || state.isHovered) {
        Painting::fillRounded(
            painter,
            QRectF(fill),
            fillRadius,
            state.isCurrent ? palette.surfaceSelected : palette.surfaceHover);
    }
    if (state.hasRing) {
        Painting::strokeInside(painter, QRectF(fill), fillRadius, ringWidth, palette.accent);
    }
}

void PickerRowPainter::drawOwner(
    QPainter& painter,
    const RepositoryOwnerLabel& owner,
    const PickerRowGeometry& geometry,
    State state) const
{
    const Palette& palette = appearance().palette();
    painter.fillRect(Painting::aligned(painter, QRectF(geometry.row)), palette.surfaceChrome);
    const double pixel = 1 / painter.deviceTransform().m22();
    const int width = geometry.row.width();
    Painting::hairline(painter, 0, 0, width, palette.hairline);
    Painting::hairline(painter, 0, geometry.row.height() - pixel, width, palette.hairline);
    state.isHovered = false;
    drawFill(painter, geometry.fill, state);
    drawElided(painter, geometry.name, owner.owner, _metrics.name, palette.textPrimary);
    Painting::text(
        painter,
        QRectF(geometry.button),
        PickerWording::ownerButton(owner.allSelected()),
        _metrics.button,
        state.isButtonHovered ? palette.textPrimary : palette.textLink,
        Qt::AlignRight);
}

void PickerRowPainter::drawRepository(
    QPainter& painter, const RepositoryLabel& repository, const PickerRowGeometry& geometry) const
{
    const Palette& palette = appearance().palette();
    drawCheckBox(painter, geometry.checkBox, repository.isSelected);
    drawElided(painter, geometry.name, repository.name, _metrics.name, palette.textPrimary);
    if (repository.isPrivate) {
        ResourceIcon{QStringLiteral("eye-closed")}.draw(
            painter, QRectF(geometry.eye), palette.textTertiary);
    }
    drawElided(painter, geometry.detail, repository.details, _metrics.detail, palette.textTertiary);
}

void PickerRowPainter::drawCheckBox(QPainter& painter, const QRect& box, bool isChecked) const
{
    const Palette& palette = appearance().palette();
    const QRectF frame(box);
    if (!isChecked) {
        Painting::fillRounded(painter, frame, checkBoxRadius, palette.field);
        Painting::strokeInside(painter, frame, checkBoxRadius, 1, palette.controlLine);
        return;
    }
    Painting::fillRounded(painter, frame, checkBoxRadius, palette.accent);
    const double inset = std::round(frame.width() / 8);
    SystemSymbol{QStringLiteral("checkmark"), checkMarkStroke}.draw(
        painter, frame.adjusted(inset, inset, -inset, -inset), palette.onAccent);
}

}  // namespace Tarnwick
