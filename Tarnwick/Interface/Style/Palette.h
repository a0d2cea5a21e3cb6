#pragma once

#include <QColor>

namespace Tarnwick {

/// The colors of an appearance by purpose, except for those of a pull request's state.
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
    QColor chip;       ///< Code, and hovered header buttons.
    QColor findMatch;  ///< Behind search matches.
    QColor hairline;
    QColor strongLine;   ///< Borders of menus and cards; the track of a spinner.
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
    QColor innerBorder;  ///< Inside the window's black border; may be transparent.

    bool operator==(const Palette&) const = default;

    static const Palette& light();
    static const Palette& dark();
};

}  // namespace Tarnwick
