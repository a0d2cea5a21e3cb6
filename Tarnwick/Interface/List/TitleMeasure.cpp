#include "Tarnwick/Interface/List/TitleMeasure.h"

#include "Tarnwick/Interface/List/TitleLayout.h"

#include <QFontMetricsF>

namespace Tarnwick {
namespace {

/// How far a line may be from the sum of its letters, for kerning: pairs of Geist are drawn
/// together by up to a tenth of the two.
constexpr double tolerance = 0.1;
constexpr qsizetype mostKept = 5'000;

}  // namespace

TitleMeasure::TitleMeasure(const LineStyle& style)
    : _style(style)
{
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
