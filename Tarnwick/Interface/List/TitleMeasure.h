#pragma once

#include "Tarnwick/Interface/Look/Appearance.h"

#include <QHash>
#include <QString>

#include <array>
#include <utility>

namespace Tarnwick {

/// How many lines titles take. Most titles are plainly shorter or longer than a line, which the
/// widths of their letters tell; only the others are laid out, which takes twenty times as long.
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

    LineStyle _style;
    std::array<float, letterCount> _letterWidths{};
    QHash<std::pair<int, QString>, int> _laidOut;
};

}  // namespace Tarnwick
