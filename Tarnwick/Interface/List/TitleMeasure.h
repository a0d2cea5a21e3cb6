#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QHash>
#include <QString>

#include <array>
#include <utility>

namespace Tarnwick {

/// Counts the lines of titles. For most titles the sum of letter widths or pair kernings decides;
/// only the others are laid out, which takes twenty times as long. Main thread only.
class TitleMeasure {
public:
    explicit TitleMeasure(const LineStyle& style);

    /// 1 or 2. `width` is in logical pixels.
    int lineCount(const QString& title, int width);

private:
    static constexpr std::size_t letterCount = 128;

    /// The sum of the letter widths; negative if the title needs a layout.
    double roughWidth(const QString& title) const;

    /// Includes pair kerning. Requires: `roughWidth` is not negative.
    double pairedWidth(const QString& title);

    LineStyle _style;
    std::array<float, letterCount> _letterWidths{};
    /// The kerning of the pairs measured so far.
    std::array<float, letterCount * letterCount> _kernings{};
    QHash<std::pair<int, QString>, int> _laidOut;
};

}  // namespace Tarnwick
