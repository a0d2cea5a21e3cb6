#pragma once

#include "Tarnwick/Interface/Picker/PickerRow.h"
#include "Tarnwick/Interface/Picker/PickerRowGeometry.h"

class QPainter;

namespace Tarnwick {

/// Measures and paints the picker's rows. Main thread only.
class PickerRowPainter {
public:
    struct State {
        bool isHovered = false;
        bool isButtonHovered = false;
        bool isCurrent = false;
        bool hasRing = false;  ///< The selected row of a list used by keyboard.
    };

    /// Call when the appearance has changed.
    void applyAppearance() { _metrics = PickerRowMetrics(); }

    const PickerRowMetrics& metrics() const { return _metrics; }

    PickerRowGeometry geometryOf(const PickerRow& row, int width) const;

    /// The whole name if it is elided, else empty.
    QString toolTip(const PickerRow& row, int width) const;

    /// `origin` is the row's upper left corner.
    void draw(QPainter& painter, const PickerRow& row, const QPoint& origin, int width, State state)
        const;

private:
    void drawOwner(
        QPainter& painter,
        const RepositoryOwnerLabel& owner,
        const PickerRowGeometry& geometry,
        State state) const;
    void drawRepository(
        QPainter& painter,
        const RepositoryLabel& repository,
        const PickerRowGeometry& geometry) const;
    void drawCheckBox(QPainter& painter, const QRect& box, bool isChecked) const;
    void drawFill(QPainter& painter, const QRect& fill, State state) const;
    PickerRowMetrics _metrics;
};

}  // namespace Tarnwick
