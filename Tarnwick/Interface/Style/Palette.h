#pragma once

#include <QColor>

namespace Tarnwick {

/// The colors of one appearance by what they are for. Views take all their colors from here but
/// for the fixed ones that carry a pull request's state.
struct Palette {
    QColor surfaceList;
    QColor surfaceChrome;  ///< Header, footer, owner labels.
    QColor surfaceHover;
    QColor surfaceSelected;
    QColor surfaceMenu;  ///< Menus and cards.
    QColor menuHighlight;
    QColor field;
    QColor infoBar;
    QColor infoBarLine;
    QColor button;
    QColor buttonLine;
    QColor chip;       ///< Code, and the header's buttons under the pointer.
    QColor findMatch;  ///< Behind letters that were looked for.
    QColor hairline;
    QColor strongLine;   ///< Around menus and cards; the track of a spinner.
    QColor controlLine;  ///< Fields, check boxes, scroll bars.
    QColor textPrimary;
    QColor textSecondary;
    QColor textTertiary;
    QColor textWarning;
    QColor textLink;
    QColor accent;
    QColor onAccent;
    QColor amber;
    QColor scrim;
    QColor innerBorder;  ///< Inside the window's black border; transparent where none is needed.

    bool operator==(const Palette&) const = default;

    static const Palette& light();
    static const Palette& dark();
};

}  // namespace Tarnwick
