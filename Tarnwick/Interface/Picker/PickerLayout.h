#pragma once

#include <QRect>

namespace Tarnwick {

class Appearance;

/// Where the picker's parts lie, in logical pixels. Buttons are told by what is seen of them.
/// Main thread only.
struct PickerLayout {
    /// The sizes of what lies at the right and of what is as high as its texts.
    struct Sizes {
        QSize done;
        QSize selectAll;
        QSize selectNone;
        int titleHeight = 0;
        int countHeight = 0;
        int directoryHeight = 0;
    };

    QRect head;
    QRect title;
    QRect done;
    QRect find;
    QRect directory;
    int divider = 0;  ///< Of the line above the summary.
    QRect summary;
    QRect count;
    QRect selectAll;
    QRect selectNone;
    QRect list;

    PickerLayout(const QSize& window, const Sizes& sizes, const Appearance& appearance);
};

}  // namespace Tarnwick
