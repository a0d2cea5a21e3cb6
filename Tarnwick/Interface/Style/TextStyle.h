#pragma once

namespace Tarnwick {

/// The desktop's text styles. Sizes follow the desktop's font.
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
    regular,
    medium,
    bold,
};

/// The size of a style as a multiple of the desktop font's.
double sizeFactor(TextStyle style);

/// The height of a line of text of this size; both in logical pixels. Even, so that an icon of even
/// height is centred in it on whole pixels.
int lineHeightOf(double pixelSize);

/// How far below the top of its line the baseline of a text of this size lies, by the extents of
/// Geist whatever font a script needs, so that a line never moves for a fall-back font.
double baselineOf(double pixelSize, int lineHeight);

}  // namespace Tarnwick
