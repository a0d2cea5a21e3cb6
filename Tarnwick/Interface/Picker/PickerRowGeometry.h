#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QRect>

namespace Tarnwick {

/// The sizes that the picker's rows share. Logical pixels.
struct PickerRowMetrics {
    LineStyle name;    ///< Of repositories and of owners.
    LineStyle detail;  ///< The second line.
    LineStyle button;  ///< An owner's.
    int checkBox = 0;
    int eye = 0;
    int repositoryHeight = 0;
    int ownerHeight = 0;

    PickerRowMetrics();
};

/// Where the parts of a row lie, from the row's upper left corner on, in whole logical pixels.
/// Painting, hit tests and help texts all go by it. What a row does not have is empty.
/// Safe from any thread.
struct PickerRowGeometry {
    QRect row;
    QRect fill;  ///< Of the row under the pointer or the current one.
    QRect checkBox;
    QRect name;
    QRect eye;
    QRect detail;
    QRect button;
    QRect buttonHit;  ///< Where a click counts for the button.

    /// `nameWidth` is what the whole name needs; it gets what there is.
    static PickerRowGeometry ofRepository(
        int width, int nameWidth, bool hasEye, const PickerRowMetrics& metrics);
    static PickerRowGeometry ofOwner(int width, int buttonWidth, const PickerRowMetrics& metrics);
};

}  // namespace Tarnwick
