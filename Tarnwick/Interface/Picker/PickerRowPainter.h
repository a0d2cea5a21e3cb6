#pragma once

#include "Tarnwick/Interface/Picker/PickerRow.h"
#include "Tarnwick/Interface/Picker/PickerRowGeometry.h"

class QPainter;

namespace Tarnwick {

/// Measures and draws the picker's rows. Main thread only.
class PickerRowPainter {
public:
    /// What the user does to a row.
    struct State {
        bool isHovered = false;
        bool isButtonHovered = false;
        bool isCurrent = false;
        bool hasRing = false;  ///< The current row of a list that is used by keyboard.
    };

    /// To be called when the appearance has changed.
    void applyAppearance();

    const PickerRowMetrics& metrics() const { return _metrics; }

    PickerRowGeometry geometryOf(const PickerRow& row, int width) const;

    /// The whole name where the row has no room for it, else nothing.
    QString helpText(const PickerRow& row, int width) const;

    /// Draws the row, `origin` being its upper left corner.
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
