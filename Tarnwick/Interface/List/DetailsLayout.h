#pragma once

#include "Tarnwick/Interface/List/FindMatches.h"
#include "Tarnwick/Interface/List/RowWording.h"

#include <functional>
#include <vector>

namespace Tarnwick {

/// The quiet line below a title, piece by piece. Where room is short the owner goes first, then the
/// repository is elided in its middle, then the author at the end; number and age always stay.
/// With a reason, its names but the first become a number before the repository is touched, and
/// repository and author keep a few letters at first; then its first name is elided at the end, the
/// author goes, then all of the repository, and at last the line ends in "…".
struct DetailsLayout {
    struct Piece {
        QString text;
        double left = 0;                    ///< From the start of the line, in logical pixels.
        std::vector<TextRange> marks = {};  ///< What of the text was looked for.
        bool isStrong = false;              ///< A reason that asks something of the user.
    };

    std::vector<Piece> pieces;
    bool isElided = false;  ///< Whether something was left out or cut.

    /// What is shown as one text, for tests and screen readers.
    QString text() const;
};

/// How texts are measured and cut.
struct TextMeasure {
    std::function<double(const QString&)> width;
    std::function<QString(const QString&, Qt::TextElideMode, double)> elided;
};

/// Of the line, and of a strong reason in it.
struct LineMeasure {
    TextMeasure plain;
    TextMeasure strong;
};

/// What a line has, in logical pixels.
struct LineRoom {
    double width = 0;
    double gap = 0;    ///< On both sides of each "·" and between repository and number.
    double scale = 1;  ///< Of the text.
};

/// `findWords` are folded. An owner in which one of them stands is elided instead of left out.
/// Main thread only.
DetailsLayout layOutDetails(
    const RowWording::Details& details,
    const LineRoom& room,
    const LineMeasure& measure,
    const QStringList& findWords = {});

}  // namespace Tarnwick
