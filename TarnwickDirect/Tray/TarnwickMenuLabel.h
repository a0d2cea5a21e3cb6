#pragma once

#include <QIcon>
#include <QImage>
#include <QString>

namespace TarnwickDirect {

/// The icon in the tray.
namespace TarnwickMenuLabel {

/// What the icon stands on. Where nobody tells, it takes a colour that light and dark bear.
enum class Background {
    unknown,
    dark,
    light,
};

/// The panel's colour on a desktop of this name, as XDG_CURRENT_DESKTOP has it. Only GNOME's own
/// bar is always dark; elsewhere themes decide, and no tray tells.
Background backgroundOf(const QString& desktop);

/// What the icon says beside being there.
struct Mark {
    bool isBlocked = false;  ///< A dot in the upper right corner.
    bool isTrouble = false;  ///< The drop is hollow, with an exclamation mark in it.

    bool operator==(const Mark&) const = default;
};

/// The icon `size` pixels wide, drawn for that size. Without the drawing in the bundle it is empty
/// but for the dot. Main thread only.
QImage image(int size, Background background, Mark mark);

/// The same in every size that trays ask for: 16, 22, 24 and 32 pixels and twice these.
QIcon icon(Background background, Mark mark);

}  // namespace TarnwickMenuLabel

}  // namespace TarnwickDirect
