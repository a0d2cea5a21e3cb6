#include "Tarnwick/Interface/Style/TextStyle.h"

#include <cmath>

namespace Tarnwick {

double sizeFactor(TextStyle style)
{
    switch (style) {
    case TextStyle::largeTitle:
        return 2.0;
    case TextStyle::title:
        return 1.4;
    case TextStyle::title2:
        return 1.2;
    case TextStyle::title3:
        return 1.1;
    case TextStyle::headline:
    case TextStyle::body:
        return 1.0;
    case TextStyle::callout:
        return 0.95;
    case TextStyle::subheadline:
        return 0.9;
    case TextStyle::footnote:
    case TextStyle::caption:
        return 0.85;
    case TextStyle::caption2:
        return 0.8;
    }
    return 1.0;
}

int lineHeightOf(double pixelSize)
{
    return 2 * static_cast<int>(std::ceil((1.35 * pixelSize - 0.02) / 2));
}

double baselineOf(double pixelSize, int lineHeight)
{
    constexpr double ascent = 1.005;
    constexpr double descent = 0.295;
    return (lineHeight - (ascent + descent) * pixelSize) / 2 + ascent * pixelSize;
}

}  // namespace Tarnwick
