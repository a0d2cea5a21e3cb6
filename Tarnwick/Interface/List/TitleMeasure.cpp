#include "Tarnwick/Interface/List/TitleMeasure.h"

#include "Tarnwick/Interface/List/TitleLayout.h"

#include <QFontMetricsF>

#include <limits>

namespace Tarnwick {
namespace {

/// How much a line's width may differ from the sum of its letters because of kerning: more than a
/// tenth for "AVATo".
constexpr double tolerance = 0.25;

/// The same with pair kerning included; covers effects of three letters.
constexpr double pairedTolerance = 0.015;
constexpr float unknown = std::numeric_limits<float>::infinity();

constexpr qsizetype mostKept = 5'000;

}  // namespace

TitleMeasure::TitleMeasure(const LineStyle& style)
    : _style(style)
{
    _kernings.fill(unknown);
    const QFontMetricsF metrics(style.font);
    constexpr char16_t firstPrintable = 0x20;
    for (char16_t letter = firstPrintable; letter < letterCount - 1; ++letter) {
        _letterWidths.at(letter) = static_cast<float>(metrics.horizontalAdvance(QChar(letter)));
    }
}

int TitleMeasure::lineCount(const QString& title, int width)
{
    const double rough = roughWidth(title);
    if (rough >= 0 && rough <= width * (1 - tolerance)) {
        return 1;
    }
    if (rough >= width * (1 + tolerance)) {
        return TitleLayout::mostLines;
    }
    const double paired = rough < 0 ? rough : pairedWidth(title);
    if (paired >= 0 && paired <= width * (1 - pairedTolerance)) {
        return 1;
    }
    if (paired >= width * (1 + pairedTolerance)) {
        return TitleLayout::mostLines;
    }
    const auto known = _laidOut.constFind({width, title});
    if (known != _laidOut.constEnd()) {
        return *known;
    }
    if (_laidOut.size() >= mostKept) {
        _laidOut.clear();
    }
    const int lines = TitleLayout(title, _style, width).lineCount();
    _laidOut.insert({width, title}, lines);
    return lines;
}

double TitleMeasure::pairedWidth(const QString& title)
{
    const QFontMetricsF metrics(_style.font);
    double width = roughWidth(title);
    for (qsizetype place = 1; place < title.size(); ++place) {
        const std::size_t first = title[place - 1].unicode();
        const std::size_t second = title[place].unicode();
        float& kerning = _kernings.at(first * letterCount + second);
        if (kerning == unknown) {
            const double pair = metrics.horizontalAdvance(title.mid(place - 1, 2));
            kerning = static_cast<float>(pair) - _letterWidths.at(first) - _letterWidths.at(second);
        }
        width += static_cast<double>(kerning);
    }
    return width;
}

double TitleMeasure::roughWidth(const QString& title) const
{
    double width = 0;
    for (const QChar character : title) {
        if (character.unicode() >= letterCount) {
            return -1;
        }
        width += static_cast<double>(_letterWidths.at(character.unicode()));
    }
    return width;
}

}  // namespace Tarnwick
