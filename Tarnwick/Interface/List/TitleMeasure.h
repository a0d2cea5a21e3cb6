#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QHash>
#include <QString>

#include <array>
#include <utility>

namespace Tarnwick {

/// How many lines titles take. Most titles are plainly shorter or longer than a line, which the
/// widths of their letters tell, or those of their pairs of letters; only the others are laid out,
/// which takes twenty times as long.
/// Main thread only.
class TitleMeasure {
public:
    explicit TitleMeasure(const LineStyle& style);

    /// 1 or 2, in a column of `width` logical pixels.
    int lineCount(const QString& title, int width);

private:
    static constexpr std::size_t letterCount = 128;

    /// The letters' widths added up, or a negative number where the title needs a layout.
    double roughWidth(const QString& title) const;

    /// Closer to the truth. Requires: the title has a rough width.
    double pairedWidth(const QString& title);

    LineStyle _style;
    std::array<float, letterCount> _letterWidths{};
    /// How much closer the second letter stands to the first than alone, for pairs met so far.
    std::array<float, letterCount * letterCount> _kernings{};
    QHash<std::pair<int, QString>, int> _laidOut;
};

}  // namespace Tarnwick
