#include "Tarnwick/Interface/Style/Palette.h"

namespace Tarnwick {

const Palette& Palette::light()
{
    static const Palette palette{
        .surfaceList = QColor(0xFFFFFF),
        .surfaceChrome = QColor(0xF8FAF9),
        .surfaceHover = QColor(0xF4F7F6),
        .surfaceSelected = QColor(0xF1F8F5),
        .surfaceMenu = QColor(0xFFFFFF),
        .menuHighlight = QColor(0xE6F0EC),
        .field = QColor(0xFFFFFF),
        .infoBar = QColor(0xFFF6E5),
        .infoBarLine = QColor(0xF0DFBB),
        .button = QColor(0xFFFFFF),
        .buttonLine = QColor(0xC6D0CC),
        .chip = QColor(0xEAF0ED),
        .findMatch = QColor(0xFFE9A8),
        .hairline = QColor(0xE4EAE7),
        .strongLine = QColor(0xD3DBD8),
        .controlLine = QColor(0x8A9692),
        .textPrimary = QColor(0x16211E),
        .textSecondary = QColor(0x53605C),
        .textTertiary = QColor(0x63706C),
        .textWarning = QColor(0xB34700),
        .textLink = QColor(0x00734E),
        .accent = QColor(0x007A53),
        .onAccent = QColor(0xFFFFFF),
        .amber = QColor::fromRgbF(0.6039215686274509F, 0.403921568627451F, 0.0F),
        .scrim = QColor(255, 255, 255, 199),
        .innerBorder = QColor(0, 0, 0, 0)};
    return palette;
}

const Palette& Palette::dark()
{
    static const Palette palette{
        .surfaceList = QColor(0x0F1312),
        .surfaceChrome = QColor(0x141A18),
        .surfaceHover = QColor(0x171D1B),
        .surfaceSelected = QColor(0x12201B),
        .surfaceMenu = QColor(0x181F1D),
        .menuHighlight = QColor(0x24302B),
        .field = QColor(0x0B0F0E),
        .infoBar = QColor(0x2A2010),
        .infoBarLine = QColor(0x453518),
        .button = QColor(0x1D2522),
        .buttonLine = QColor(0x3C4743),
        .chip = QColor(0x27302D),
        .findMatch = QColor(0x4A3A0F),
        .hairline = QColor(0x222A27),
        .strongLine = QColor(0x323C38),
        .controlLine = QColor(0x66736F),
        .textPrimary = QColor(0xE9EFED),
        .textSecondary = QColor(0xA5B1AD),
        .textTertiary = QColor(0x8B9894),
        .textWarning = QColor(0xFFA14A),
        .textLink = QColor(0x3CCB9B),
        .accent = QColor(0x3CCB9B),
        .onAccent = QColor(0x04150F),
        .amber = QColor::fromRgbF(0.8235294117647058F, 0.6F, 0.13333333333333333F),
        .scrim = QColor(11, 15, 14, 189),
        .innerBorder = QColor(255, 255, 255, 28)};
    return palette;
}

}  // namespace Tarnwick
