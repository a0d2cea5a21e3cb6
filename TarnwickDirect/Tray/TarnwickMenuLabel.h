#pragma once

#include <QIcon>
#include <QImage>
#include <QString>

namespace TarnwickDirect {

namespace TarnwickMenuLabel {

/// The tray's background. If unknown, the icon has a color for both light and dark.
enum class Background {
    unknown,
    dark,
    light,
};

/// The tray's background on the desktop in XDG_CURRENT_DESKTOP. Only GNOME's bar is always dark;
/// elsewhere it depends on the theme, which trays do not report.
Background backgroundOf(const QString& desktop);

/// The icon's additional marks.
struct Mark {
    bool isBlocked = false;  ///< A dot in the upper right corner.
    bool isTrouble = false;  ///< A hollow drop with an exclamation mark.

    bool operator==(const Mark&) const = default;
};

/// The icon at this size in pixels. Without its drawing only the dot. Main thread only.
QImage image(int size, Background background, Mark mark);

/// The same in the sizes that trays use: 16, 22, 24 and 32 pixels and twice these.
QIcon icon(Background background, Mark mark);

}  // namespace TarnwickMenuLabel

}  // namespace TarnwickDirect
