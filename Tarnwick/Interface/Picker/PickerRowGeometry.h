#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QRect>

namespace Tarnwick {

/// Sizes that the picker's rows share, in logical pixels.
struct PickerRowMetrics {
    LineStyle name;    ///< Of repositories and owners.
    LineStyle detail;  ///< The second line.
    LineStyle button;  ///< Of an owner.
    int checkBox = 0;
    int eye = 0;
    int repositoryHeight = 0;
    int ownerHeight = 0;

    PickerRowMetrics();
};

/// The places of a row's parts from its upper left corner, in whole logical pixels. Used for
/// painting, hit tests and tool tips. Absent parts are empty. Safe from any thread.
struct PickerRowGeometry {
    QRect row;
    QRect fill;  ///< For hover and selection.
    QRect checkBox;
    QRect name;
    QRect eye;
    QRect detail;
    QRect button;
    QRect buttonHit;  ///< The clickable area of the button.

    /// `nameWidth` is the width of the whole name, which is limited to the available space.
    static PickerRowGeometry ofRepository(
        int width, int nameWidth, bool hasEye, const PickerRowMetrics& metrics);
    static PickerRowGeometry ofOwner(int width, int buttonWidth, const PickerRowMetrics& metrics);
};

}  // namespace Tarnwick
