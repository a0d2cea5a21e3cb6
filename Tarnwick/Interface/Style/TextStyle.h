#pragma once

#include <QFont>

namespace Tarnwick {

/// Text styles with sizes relative to the desktop's font.
enum class TextStyle {
    largeTitle,
    title,
    title2,
    title3,
    headline,
    subheadline,
    body,
    callout,
    footnote,
    caption,
    caption2,
};

enum class TextWeight {
    regular = QFont::Normal,
    medium = QFont::Medium,
    bold = QFont::Bold,
};

/// The size of a style as a multiple of the desktop font's.
double sizeFactor(TextStyle style);

/// The line height for a text size, both in logical pixels. Even, so that icons of even height are
/// centered on whole pixels.
int lineHeightOf(double pixelSize);

/// The distance of the baseline from the top of the line. Fallback fonts do not change it.
double baselineOf(double pixelSize, int lineHeight);

}  // namespace Tarnwick
