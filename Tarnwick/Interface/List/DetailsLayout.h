#pragma once

#include "Tarnwick/Interface/List/FindMatches.h"
#include "Tarnwick/Interface/List/RowWording.h"

#include <functional>
#include <vector>

namespace Tarnwick {

/// The line of details below a title, piece by piece. To fit, it drops the owner, then elides the
/// repository in its middle, then the author at its end. Number and age always stay. With a reason,
/// it first replaces all names but the first with their number, and repository and author keep a
/// minimum width; then it elides the first name, drops the author and then the repository, and
/// finally ends the line in "…".
struct DetailsLayout {
    struct Piece {
        QString text;
        double left = 0;                    ///< From the start of the line, in logical pixels.
        std::vector<TextRange> marks = {};  ///< Matches of the search.
        bool isStrong = false;              ///< A reason that the user can act on.
    };

    std::vector<Piece> pieces;
    bool isElided = false;  ///< Something was dropped or elided.
};

struct TextMeasure {
    std::function<double(const QString&)> width;
    std::function<QString(const QString&, Qt::TextElideMode, double)> elided;
};

/// For the line and for a strong reason in it.
struct LineMeasure {
    TextMeasure plain;
    TextMeasure strong;
};

/// In logical pixels.
struct LineRoom {
    double width = 0;
    double gap = 0;    ///< Around each "·" and between repository and number.
    double scale = 1;  ///< The text scale.
};

/// `findWords` are folded; an owner that matches is elided, not dropped. Main thread only.
DetailsLayout layOutDetails(
    const RowWording::Details& details,
    const LineRoom& room,
    const LineMeasure& measure,
    const QStringList& findWords = {});

}  // namespace Tarnwick
